// SPDX-License-Identifier: Apache-2.0
// One callback that somebody has registered. It is called on the sound thread only, and never again once end() has
// returned.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

namespace audio {

class Registration {
public:
    // On the sound thread; does nothing after the end.
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
