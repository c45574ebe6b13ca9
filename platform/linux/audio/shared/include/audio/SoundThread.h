// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace audio {

// The thread "orvane-sound", which the process shares. It runs every callback of the sound manager, and slow work that
// no caller waits for. Callbacks may block and may call the sound manager.
class SoundThread {
public:
    SoundThread();
    ~SoundThread() { stop(); }
    SoundThread(const SoundThread&) = delete;
    SoundThread& operator=(const SoundThread&) = delete;

    // Runs `work` on the thread, later, in the order of the calls. Any thread. An exception becomes one line in the
    // log.
    void post(std::function<void()> work);
    bool isCurrent() const { return std::this_thread::get_id() == mThread.get_id(); }

    // Waits for running work and drops queued work.
    void stop() noexcept;

private:
    void run() noexcept;
    // Empty if the thread is stopping.
    std::function<void()> next();

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<std::function<void()>> mWork;
    bool mStopping = false;
    std::thread mThread;
};

}  // namespace audio
