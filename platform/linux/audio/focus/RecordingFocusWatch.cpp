// SPDX-License-Identifier: Apache-2.0
#include "RecordingFocusWatch.h"

#include <mutex>
#include <string>

#include "FocusReason.h"
#include "FocusWatches.h"
#include "audio/SoundThread.h"
#include "gio/Bus.h"

namespace audio {

namespace {

constexpr const char* kName = "org.orvane.Focus.Recording";

// On the sound thread: of who holds the focus, or held it last.
sound_stream_focus_change_reason_e lastReason = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;

void ownerChanged(GVariant* arguments) {
    const char* owner = "";
    g_variant_get(arguments, "(&s&s&s)", nullptr, nullptr, &owner);
    SoundThread::get().post([owner = std::string(owner)] {
        if (!owner.empty()) {
            lastReason = focusReasonOf(owner);
        }
        FocusWatches::get().tell(SOUND_STREAM_FOCUS_FOR_RECORDING,
                                 owner.empty() ? SOUND_STREAM_FOCUS_STATE_RELEASED : SOUND_STREAM_FOCUS_STATE_ACQUIRED,
                                 lastReason, "");
    });
}

}  // namespace

void watchRecordingFocus() {
    static std::once_flag once;
    std::call_once(once, [] {
        gio::Bus::session().hear("NameOwnerChanged", kName, ownerChanged);
        // The bus answers in order: when it has answered, it also watches.
        const std::string owner = gio::Bus::session().ownerOf(kName);
        if (!owner.empty()) {
            SoundThread::get().post([owner] { lastReason = focusReasonOf(owner); });
        }
    });
}

}  // namespace audio
