// SPDX-License-Identifier: Apache-2.0
// The sound room's own thread: every callback of the sound manager runs here, and so does slow work that must not hold
// up who asks for it. Callbacks may take as long as they like and may call the sound manager.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace audio {

class SoundThread {
public:
    // Started on first use; lives until the process ends.
    static SoundThread& get();

    // Runs `work` on the thread, later, in the order of the calls. Any thread.
    void post(std::function<void()> work);
    bool isCurrent() const { return std::this_thread::get_id() == mThread.get_id(); }

private:
    SoundThread();
    [[noreturn]] void run();

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<std::function<void()>> mWork;
    std::thread mThread;
};

}  // namespace audio
