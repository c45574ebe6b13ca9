// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

namespace pulse {

// Owns PulseAudio's event loop and the thread that runs it. Hold a Lock of the loop to use anything that belongs to it.
// Callbacks run with the lock held.
class Mainloop {
public:
    // Starts the thread. Throws std::runtime_error.
    explicit Mainloop(const char* threadName);
    ~Mainloop();
    Mainloop(const Mainloop&) = delete;
    Mainloop& operator=(const Mainloop&) = delete;

    // Joins the thread; no callback runs afterward. Must not be called with the lock held.
    void stop() noexcept;

    pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(mLoop); }

    // Recursive. Does nothing on the loop's own thread.
    class Lock {
    public:
        explicit Lock(const Mainloop& loop);
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pa_threaded_mainloop* mLocked;
    };

private:
    pa_threaded_mainloop* mLoop;
};

}  // namespace pulse
