// SPDX-License-Identifier: Apache-2.0
#include "Focus.h"

#include <algorithm>
#include <future>
#include <utility>

#include "FocusReason.h"
#include "StreamInfo.h"
#include "bus/SessionBus.h"
#include "process/FaultLog.h"
#include "process/Guard.h"

namespace audio {
namespace {

constexpr unsigned kAllowReplacement = 1;
constexpr unsigned kReplace = 2;
constexpr unsigned kOwner = 1;
constexpr unsigned kInQueue = 2;
constexpr unsigned kAlreadyOwner = 4;
constexpr int kAnswerMs = 1000;

using Then = std::function<void(int)>;

int onIoThread(const std::function<void(Then)>& work) {
    std::promise<int> code;
    bus::ioThread().post([&] {
        try {
            work([&code](int value) { code.set_value(value); });
        } catch (...) {
            code.set_exception(std::current_exception());
        }
    });
    return code.get_future().get();
}

struct Focuses {
    Focus playback{SOUND_STREAM_FOCUS_FOR_PLAYBACK};
    Focus recording{SOUND_STREAM_FOCUS_FOR_RECORDING};
};

}  // namespace

Focus& Focus::of(sound_stream_focus_mask_e mask) {
    auto& focuses = process::shared<Focuses>();
    return mask == SOUND_STREAM_FOCUS_FOR_RECORDING ? focuses.recording : focuses.playback;
}

Focus::Focus(sound_stream_focus_mask_e mask)
    : mBus(bus::session()),
      mThread(process::shared<SoundThread>()),
      mMask(mask),
      mName(mask == SOUND_STREAM_FOCUS_FOR_RECORDING ? "org.orvane.Focus.Recording" : "org.orvane.Focus.Playback") {
    mAcquired = mBus.subscribe(
        gio::messageBus(), "NameAcquired",
        [this](const gio::Variant&) { process::contained("focus gain", [this] { nameAcquired(); }); }, mName);
    mLost = mBus.subscribe(
        gio::messageBus(), "NameLost",
        [this](const gio::Variant&) { process::contained("focus loss", [this] { nameLost(); }); }, mName);
}

int Focus::acquire(sound_stream_info_h stream) {
    std::lock_guard oneAtATime(mRequests);
    return onIoThread([&](Then then) { request(stream, std::move(then)); });
}

int Focus::release(sound_stream_info_h stream) {
    std::lock_guard oneAtATime(mRequests);
    return onIoThread([&](Then then) { drop(stream, std::move(then)); });
}

void Focus::request(sound_stream_info_h stream, Then then) {
    if (holds(stream)) {
        return then(SOUND_MANAGER_ERROR_INVALID_STATE);
    }
    if (!mBus.isOpen()) {
        if (!std::exchange(mNoBusLogged, true)) {
            dlog_print(DLOG_ERROR, "orvane-sound", "no session bus, so no application can acquire the focus");
        }
        return then(SOUND_MANAGER_ERROR_INTERNAL);
    }
    mRequesting = true;
    showFocusReason(stream->type);  // the application that loses the focus reads it immediately
    ask("RequestName", gio::Variant::tuple(mName, kAllowReplacement | kReplace),
        [this, stream, then = std::move(then)](unsigned answer) { then(answered(stream, answer)); });
}

int Focus::answered(sound_stream_info_h stream, unsigned answer) {
    mRequesting = false;
    if (answer != kOwner && answer != kAlreadyOwner) {
        if (mStreams.empty()) {
            leave();
        }
        handOver(std::nullopt);
        return answer == kInQueue ? SOUND_MANAGER_ERROR_POLICY : SOUND_MANAGER_ERROR_INTERNAL;
    }
    if (mHolder != nullptr) {
        interrupt(stream->type);
    }
    forget(stream);
    mStreams.push_back(stream);
    mHolder = stream;
    return SOUND_MANAGER_ERROR_NONE;
}

void Focus::drop(sound_stream_info_h stream, Then then) {
    if (std::find(mStreams.begin(), mStreams.end(), stream) == mStreams.end()) {
        return then(SOUND_MANAGER_ERROR_INVALID_STATE);
    }
    forget(stream);
    if (holds(stream)) {
        mHolder = nullptr;
        handOver(stream->type);
    }
    if (!mStreams.empty() || !mBus.isOpen()) {
        return then(SOUND_MANAGER_ERROR_NONE);
    }
    leave([then = std::move(then)](unsigned) { then(SOUND_MANAGER_ERROR_NONE); });
}

void Focus::leave(std::function<void(unsigned)> then) {
    ask("ReleaseName", gio::Variant::tuple(mName), std::move(then));
}

void Focus::ask(const char* method, const gio::Variant& arguments, std::function<void(unsigned)> then) {
    mBus.callAsync(gio::messageBus(), method, arguments, {kAnswerMs},
                   [method, then = std::move(then)](const gio::Variant& result, const gio::CallError* error) {
                       if (error != nullptr) {
                           process::logFault(DLOG_ERROR, "orvane-sound", method,
                                             std::string("focus: ") + method + " failed: " + error->what());
                       }
                       if (then) {
                           then(error == nullptr ? std::get<0>(result.fields<unsigned>()) : 0);
                       }
                   });
}

void Focus::nameAcquired() {
    mOwned = true;
    handOver(std::nullopt);
}

void Focus::nameLost() {
    mOwned = false;
    if (mHolder == nullptr) {
        return;
    }
    interrupt(std::nullopt);
    if (mStreams.empty() && !mRequesting) {
        leave();  // otherwise the bus would return the name to this process
    }
}

// Gives the focus to the next stream, unless a request in progress takes precedence.
void Focus::handOver(Reason reason) {
    if (mOwned && !mRequesting && mHolder == nullptr && !mStreams.empty()) {
        const auto next = mStreams.back();
        mHolder = next;
        showFocusReason(next->type);
        report(next, SOUND_STREAM_FOCUS_STATE_ACQUIRED, reason);
    }
}

void Focus::interrupt(Reason reason) {
    const auto stream = mHolder.exchange(nullptr);
    if (!stream->reacquires) {
        forget(stream);
    }
    report(stream, SOUND_STREAM_FOCUS_STATE_RELEASED, reason);
}

void Focus::forget(sound_stream_info_h stream) {
    mStreams.erase(std::remove(mStreams.begin(), mStreams.end(), stream), mStreams.end());
}

// Captures the stream, not only its handle, because a later stream may get the same handle.
void Focus::report(sound_stream_info_h handle, sound_stream_focus_state_e state, Reason reason) {
    mThread.post([this, stream = streamOf(handle), handle, state, reason] {
        if (!reason && state == SOUND_STREAM_FOCUS_STATE_RELEASED) {
            mLostTo = focusReasonOf(mName);
        }
        const auto why = reason ? static_cast<sound_stream_focus_change_reason_e>(*reason) : mLostTo;
        if (stream && stream->callback) {
            stream->registration.call(
                [&] { stream->callback(handle, mMask, state, why, SOUND_BEHAVIOR_NONE, nullptr, stream->userData); });
        }
    });
}

}  // namespace audio
