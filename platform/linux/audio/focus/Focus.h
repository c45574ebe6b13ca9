// SPDX-License-Identifier: Apache-2.0
// The focus of sound streams: ownership of a well-known D-Bus name. Streams of this process share one connection, so
// they queue here, the newest in front; other processes queue at the bus.
//
// All state changes on gio::IoThread, where the bus's answers and signals come in one order, so that who has the focus
// is never in doubt; callers wait for the answer there. Every callback of a stream is posted to SoundThread.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "gio/Bus.h"
#include "sound_manager.h"

namespace audio {

class Focus {
public:
    // Lives until the process ends.
    static Focus& of(sound_stream_focus_mask_e mask);

    // Both wait for the bus, a second at most, and return sound_manager_error_e. Any thread but the IO thread.
    int acquire(sound_stream_info_h stream);
    // A stream that lost the focus and waits for it stops waiting.
    int release(sound_stream_info_h stream);
    // Any thread.
    bool holds(sound_stream_info_h stream) const { return mHolder == stream; }

private:
    using Reason = std::optional<int>;  // nothing: of the other process that has or had the focus

    explicit Focus(sound_stream_focus_mask_e mask);
    void request(sound_stream_info_h stream, std::function<void(int)> then);
    int answered(sound_stream_info_h stream, unsigned answer);
    void drop(sound_stream_info_h stream, std::function<void(int)> then);
    void leave(std::function<void(unsigned)> then = nullptr);
    void ask(const char* method, GVariant* arguments, std::function<void(unsigned)> then);
    void nameAcquired();
    void nameLost();
    void handOver(Reason reason);
    void interrupt(Reason reason);
    void forget(sound_stream_info_h stream);
    void tell(sound_stream_info_h stream, sound_stream_focus_state_e state, Reason reason);

    const gio::Bus& mBus;
    const sound_stream_focus_mask_e mMask;
    const std::string mName;
    std::mutex mRequests;  // one at a time
    std::atomic<sound_stream_info_h> mHolder{nullptr};
    // On the IO thread.
    std::vector<sound_stream_info_h> mStreams;  // that hold or await the focus, the next one last
    bool mRequesting = false;
    bool mOwned = false;
    bool mToldOfNoBus = false;
    // On the sound thread.
    sound_stream_focus_change_reason_e mLostTo = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
};

}  // namespace audio
