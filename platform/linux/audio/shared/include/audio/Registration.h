// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

namespace audio {

// A callback that a caller of the sound manager has registered. It runs on the sound thread only, and never after end()
// has returned.
class Registration {
public:
    // On the sound thread. Does nothing after the end. An exception becomes one line in the log.
    void call(const std::function<void()>& callback);
    // Waits for a call that is running, unless that call itself ends the registration.
    void end();

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mRunning = false;
    bool mEnded = false;
};

}  // namespace audio
