// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

namespace audio {

// A callback that is registered with the sound manager. It runs only on the sound thread, and never after end() has
// returned.
class Registration {
public:
    // Sound thread only. Does nothing after end(). An exception becomes one line in the log.
    void call(const std::function<void()>& callback);
    // Waits for a running callback, unless the callback itself calls this.
    void end();

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mRunning = false;
    bool mEnded = false;
};

}  // namespace audio
