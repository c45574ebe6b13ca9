// SPDX-License-Identifier: Apache-2.0
#include "RecordingFocusWatch.h"

#include "FocusReason.h"
#include "FocusWatches.h"
#include "bus/SessionBus.h"
#include "process/Guard.h"

namespace audio {

namespace {

constexpr const char* kName = "org.orvane.Focus.Recording";

}  // namespace

RecordingFocusWatch::RecordingFocusWatch()
    : mWatches(process::shared<FocusWatches>()), mThread(process::shared<SoundThread>()) {
    mOwnerChanged = bus::session().subscribe(
        gio::messageBus(), "NameOwnerChanged",
        [this](const gio::Variant& arguments) {
            process::contained("recording focus watch", [&] {
                ownerChanged(std::get<2>(arguments.fields<std::string, std::string, std::string>()));
            });
        },
        kName);
    // The bus processes requests in order, so the watch is active once it answers.
    const std::string owner = bus::session().ownerOf(kName);
    if (!owner.empty()) {
        mThread.post([this, owner] { mReason = focusReasonOf(owner); });
    }
}

void RecordingFocusWatch::ownerChanged(const std::string& owner) {
    mThread.post([this, owner] {
        if (!owner.empty()) {
            mReason = focusReasonOf(owner);
        }
        mWatches.report(SOUND_STREAM_FOCUS_FOR_RECORDING,
                        owner.empty() ? SOUND_STREAM_FOCUS_STATE_RELEASED : SOUND_STREAM_FOCUS_STATE_ACQUIRED, mReason,
                        "");
    });
}

}  // namespace audio
