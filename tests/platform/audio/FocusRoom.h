// SPDX-License-Identifier: Apache-2.0
// What the tests of the recording focus share: a private bus, streams, and rivals for the focus.
#pragma once

#include <future>
#include <mutex>
#include <string>
#include <tuple>

#include "Reports.h"
#include "bus/SessionBus.h"
#include "dbus/standins/StandInInterfaces.h"
#include "room/Child.h"
#include "sound_manager.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"

namespace focus {

constexpr const char* kName = "org.orvane.Focus.Recording";

using Change = std::tuple<int, int, int>;  // mask, state, reason

constexpr Change released(int reason) {
    return {SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_STREAM_FOCUS_STATE_RELEASED, reason};
}
constexpr Change acquired(int reason) {
    return {SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_STREAM_FOCUS_STATE_ACQUIRED, reason};
}

inline bool isFree() {
    return !bus::session().hasOwner(kName);
}
inline bool isOurs() {
    return bus::session().ownerOf(kName) == bus::session().uniqueName();
}

// Returns when the bus and the sound thread have delivered every change so far.
inline void settle() {
    isFree();
    std::promise<void> done;
    bus::ioThread().run([&] { process::shared<audio::SoundThread>().post([&] { done.set_value(); }); });
    done.get_future().wait();
}

// A stream of this process.
class Stream {
public:
    explicit Stream(bool reacquires = true, sound_stream_type_e type = SOUND_STREAM_TYPE_VOICE_RECOGNITION) {
        sound_manager_create_stream_information(type, changed, this, &mHandle);
        sound_manager_set_focus_reacquisition(mHandle, reacquires);
    }
    ~Stream() { destroy(); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    int acquire() { return sound_manager_acquire_focus(mHandle, SOUND_STREAM_FOCUS_FOR_RECORDING, 0, nullptr); }
    int release() { return sound_manager_release_focus(mHandle, SOUND_STREAM_FOCUS_FOR_RECORDING, 0, nullptr); }
    int destroy() { return sound_manager_destroy_stream_information(mHandle); }
    bool holds() const {
        auto state = SOUND_STREAM_FOCUS_STATE_RELEASED;
        sound_manager_get_focus_state(mHandle, nullptr, &state);
        return state == SOUND_STREAM_FOCUS_STATE_ACQUIRED;
    }
    // Runs in every callback, before the callback is recorded.
    void inCallback(std::function<void(Change)> work) {
        const std::lock_guard lock(mMutex);
        mInCallback = std::move(work);
    }
    Reports<Change>* operator->() { return &mReports; }

private:
    static void changed(sound_stream_info_h, sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                        sound_stream_focus_change_reason_e reason, int, const char*, void* self) {
        auto* stream = static_cast<Stream*>(self);
        std::function<void(Change)> work;
        {
            const std::lock_guard lock(stream->mMutex);
            work = stream->mInCallback;
        }
        if (work) {
            work({mask, state, reason});
        }
        stream->mReports.add({mask, state, reason});
    }

    sound_stream_info_h mHandle = nullptr;
    std::mutex mMutex;
    std::function<void(Change)> mInCallback;
    Reports<Change> mReports;
};

// Another process with the same sound manager, which takes the focus for a stream of this type.
inline Child holder(int type) {
    return Child({FOCUS_HOLDER, std::to_string(type)});
}

// Another program on the bus, which behaves differently from this platform.
class Rival {
public:
    // `flags` are RequestName's.
    unsigned take(unsigned flags) { return ask("RequestName", gio::Variant::tuple(kName, flags)); }
    void giveBack() { ask("ReleaseName", gio::Variant::tuple(kName)); }
    // From now on, replies with this reason.
    void show(const gio::Variant& reason) {
        mReason = mBus.exportObject("/org/orvane/Focus", dbus::standInInterface("org.freedesktop.DBus.Properties"),
                                    [reason](auto& call) { call.reply(gio::Variant::tuple(reason)); });
    }

private:
    unsigned ask(const char* method, const gio::Variant& arguments) {
        return std::get<0>(mBus.call(gio::messageBus(), method, arguments).fields<unsigned>());
    }

    gio::Connection mBus = ownConnection(privateBusAddress());
    gio::Registration mReason;
};

constexpr unsigned kAllowReplacement = 1;
constexpr unsigned kReplace = 2;
constexpr unsigned kPrimaryOwner = 1;

}  // namespace focus
