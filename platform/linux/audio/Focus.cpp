#include "audio/Focus.h"

#include <algorithm>
#include <cstring>

#include "audio/SoundThread.h"
#include "audio/StreamInfo.h"
#include "dlog.h"
#include "lib/gio/IoThread.h"

namespace audio {
namespace {

constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";
constexpr unsigned kAllowReplacementAndReplace = 1 | 2;
constexpr unsigned kOwner = 1;
constexpr unsigned kAlreadyOwner = 4;
constexpr int kAnswerMs = 1000;

gio::Variant askBus(GDBusConnection* bus, const char* method, GVariant* arguments) {
    gio::Error fault;
    gio::Variant answer(g_dbus_connection_call_sync(bus, kBus, kBusPath, kBus, method, arguments, nullptr,
                                                    G_DBUS_CALL_FLAGS_NONE, kAnswerMs, nullptr, fault.out()));
    if (!answer) {
        dlog_print(DLOG_ERROR, "orvane-sound", "focus: %s failed: %s", method, fault.message().c_str());
    }
    return answer;
}

}  // namespace

Focus::Focus(sound_stream_focus_mask_e mask)
    : mMask(mask),
      mName(mask == SOUND_STREAM_FOCUS_FOR_RECORDING ? "org.orvane.Focus.Recording" : "org.orvane.Focus.Playback") {}

bool Focus::connect() {
    if (mBus) {
        return true;
    }
    gio::IoThread::get().run([this] {
        gio::Error fault;
        gio::Object<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, fault.out()));
        if (!bus) {
            dlog_print(DLOG_ERROR, "orvane-sound", "no session bus, so no focus: %s", fault.message().c_str());
            return;
        }
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
        for (const char* signal : {"NameAcquired", "NameLost"}) {
            g_dbus_connection_signal_subscribe(bus.get(), kBus, kBus, signal, kBusPath, mName.c_str(),
                                               G_DBUS_SIGNAL_FLAGS_NONE, signalled, this, nullptr);
        }
        mBus = std::move(bus);
    });
    return mBus != nullptr;
}

unsigned Focus::request() {
    const auto answer =
        askBus(mBus.get(), "RequestName", g_variant_new("(su)", mName.c_str(), kAllowReplacementAndReplace));
    guint32 result = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &result);
    }
    return result;
}

void Focus::leaveBus() {
    askBus(mBus.get(), "ReleaseName", g_variant_new("(s)", mName.c_str()));
}

bool Focus::has(sound_stream_info_h stream) const {
    return mMine && !mStreams.empty() && mStreams.back() == stream;
}

bool Focus::holds(sound_stream_info_h stream) const {
    std::lock_guard lock(mMutex);
    return has(stream);
}

int Focus::acquire(sound_stream_info_h stream) {
    std::lock_guard oneAtATime(mRequests);
    if (holds(stream)) {
        return SOUND_MANAGER_ERROR_INVALID_STATE;
    }
    if (!connect()) {
        return SOUND_MANAGER_ERROR_INTERNAL;
    }
    const unsigned result = request();
    if (result != kOwner && result != kAlreadyOwner) {
        std::unique_lock lock(mMutex);
        if (mStreams.empty() && result != 0) {
            lock.unlock();
            leaveBus();
        }
        return result == 0 ? SOUND_MANAGER_ERROR_INTERNAL : SOUND_MANAGER_ERROR_POLICY;
    }
    std::lock_guard lock(mMutex);
    mStreams.erase(std::remove(mStreams.begin(), mStreams.end(), stream), mStreams.end());
    if (mMine && !mStreams.empty()) {
        const auto before = mStreams.back();
        if (!before->reacquires) {
            mStreams.pop_back();
        }
        tell(before, SOUND_STREAM_FOCUS_STATE_RELEASED, stream->type);
    }
    mStreams.push_back(stream);
    mMine = true;
    return SOUND_MANAGER_ERROR_NONE;
}

int Focus::release(sound_stream_info_h stream) {
    std::lock_guard oneAtATime(mRequests);
    std::unique_lock lock(mMutex);
    const auto found = std::find(mStreams.begin(), mStreams.end(), stream);
    if (found == mStreams.end()) {
        return SOUND_MANAGER_ERROR_INVALID_STATE;
    }
    const bool held = has(stream);
    mStreams.erase(found);
    if (mStreams.empty()) {
        mMine = false;
        lock.unlock();
        leaveBus();
    } else if (held) {
        tell(mStreams.back(), SOUND_STREAM_FOCUS_STATE_ACQUIRED, stream->type);
    }
    return SOUND_MANAGER_ERROR_NONE;
}

void Focus::forget(sound_stream_info_h stream) {
    release(stream);
}

void Focus::ownerChanged(bool mine) {
    std::unique_lock lock(mMutex);
    if (mMine == mine || mStreams.empty()) {
        return;
    }
    mMine = mine;
    const auto stream = mStreams.back();
    tell(stream, mine ? SOUND_STREAM_FOCUS_STATE_ACQUIRED : SOUND_STREAM_FOCUS_STATE_RELEASED,
         mine ? stream->type : -1);
    if (!mine && !stream->reacquires) {
        mStreams.pop_back();
        if (mStreams.empty()) {
            lock.unlock();
            leaveBus();
        }
    }
}

// A reason below zero is asked from who owns the name now.
void Focus::tell(sound_stream_info_h stream, sound_stream_focus_state_e state, int reason) {
    SoundThread::get().post([this, stream, state, reason] {
        const int why = reason < 0 ? ownersReason() : reason;
        if (isStream(stream) && stream->callback) {
            stream->callback(stream, mMask, state, static_cast<sound_stream_focus_change_reason_e>(why),
                             SOUND_BEHAVIOR_NONE, nullptr, stream->userData);
        }
    });
}

int Focus::ownersReason() const {
    gio::Error fault;
    const gio::Variant answer(
        g_dbus_connection_call_sync(mBus.get(), mName.c_str(), "/org/orvane/Focus", "org.freedesktop.DBus.Properties",
                                    "Get", g_variant_new("(ss)", "org.orvane.Focus1", "Reason"), G_VARIANT_TYPE("(v)"),
                                    G_DBUS_CALL_FLAGS_NO_AUTO_START, kAnswerMs / 4, nullptr, fault.out()));
    if (!answer) {
        return SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
    }
    GVariant* value = nullptr;
    g_variant_get(answer.get(), "(v)", &value);
    const gio::Variant owner(value);
    return g_variant_is_of_type(value, G_VARIANT_TYPE_INT32) ? g_variant_get_int32(value)
                                                             : SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
}

void Focus::signalled(GDBusConnection*, const char*, const char*, const char*, const char* signal, GVariant*,
                      void* self) noexcept {
    static_cast<Focus*>(self)->ownerChanged(std::strcmp(signal, "NameAcquired") == 0);
}

Focus& focusFor(sound_stream_focus_mask_e mask) {
    // Never destroyed: the bus may still signal while the process ends.
    static Focus* playback = new Focus(SOUND_STREAM_FOCUS_FOR_PLAYBACK);
    static Focus* recording = new Focus(SOUND_STREAM_FOCUS_FOR_RECORDING);
    return mask == SOUND_STREAM_FOCUS_FOR_RECORDING ? *recording : *playback;
}

}  // namespace audio
