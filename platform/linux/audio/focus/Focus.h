// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "audio/SoundThread.h"
#include "bus/SessionBus.h"
#include "sound_manager.h"

namespace audio {

// A focus of sound streams, which a process holds while it owns a well-known D-Bus name. The streams of this process
// share one connection, so they queue here, with the newest first; other processes queue at the bus.
//
// The state changes only on the IO thread, which receives the bus's replies and signals in order, so it always knows
// who holds the focus. Callers wait for the reply. The callbacks of streams run on the sound thread.
class Focus {
public:
    // This process's focus of the given kind.
    static Focus& of(sound_stream_focus_mask_e mask);
    explicit Focus(sound_stream_focus_mask_e mask);

    // Both wait for the bus for at most one second and return sound_manager_error_e. Any thread except the IO thread.
    int acquire(sound_stream_info_h stream);
    // If the stream waits for the focus, it stops waiting.
    int release(sound_stream_info_h stream);
    // Any thread.
    bool holds(sound_stream_info_h stream) const { return mHolder == stream; }

private:
    using Reason = std::optional<int>;  // empty: the reason of the other process that has or had the focus

    void request(sound_stream_info_h stream, std::function<void(int)> then);
    int answered(sound_stream_info_h stream, unsigned answer);
    void drop(sound_stream_info_h stream, std::function<void(int)> then);
    void leave(std::function<void(unsigned)> then = nullptr);
    void ask(const char* method, const gio::Variant& arguments, std::function<void(unsigned)> then);
    void nameAcquired();
    void nameLost();
    void handOver(Reason reason);
    void interrupt(Reason reason);
    void forget(sound_stream_info_h stream);
    void report(sound_stream_info_h stream, sound_stream_focus_state_e state, Reason reason);

    const gio::Connection& mBus;
    SoundThread& mThread;
    const sound_stream_focus_mask_e mMask;
    const std::string mName;
    std::mutex mRequests;  // allows one request at a time
    std::atomic<sound_stream_info_h> mHolder{nullptr};
    // IO thread only.
    std::vector<sound_stream_info_h> mStreams;  // hold the focus or wait for it; the next one is last
    bool mRequesting = false;
    bool mOwned = false;
    bool mNoBusLogged = false;
    // Sound thread only.
    sound_stream_focus_change_reason_e mLostTo = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
    gio::Registration mAcquired;
    gio::Registration mLost;
};

}  // namespace audio
