// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

namespace pulse {

// Owns PulseAudio's event loop and the thread that runs it. Everything that belongs to a loop is used under a Lock of
// that loop. The loop calls back with the lock held.
class Mainloop {
public:
    // Starts the thread. Throws std::runtime_error.
    explicit Mainloop(const char* threadName);
    ~Mainloop();
    Mainloop(const Mainloop&) = delete;
    Mainloop& operator=(const Mainloop&) = delete;

    // Joins the thread: nothing calls back any more. Without the lock.
    void stop() noexcept;

    pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(mLoop); }

    // A thread may take it several times. On the loop's own thread it does nothing.
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
