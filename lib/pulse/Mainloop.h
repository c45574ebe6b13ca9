// SPDX-License-Identifier: Apache-2.0
// Owns PulseAudio's event loop and the thread that runs it. Everything of the library's that belongs to a loop is used
// under a Lock of that loop; the loop's own callbacks run with it held.
#pragma once

#include <pulse/pulseaudio.h>

namespace pulse {

class Mainloop {
public:
    // Starts the thread. Throws std::runtime_error.
    explicit Mainloop(const char* threadName);
    ~Mainloop();
    Mainloop(const Mainloop&) = delete;
    Mainloop& operator=(const Mainloop&) = delete;

    pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(mLoop); }

    // May be taken on the loop's own thread, where it does nothing, and by one thread several times.
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
