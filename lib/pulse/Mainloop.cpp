// SPDX-License-Identifier: Apache-2.0
#include "pulse/Mainloop.h"

#include <stdexcept>

namespace pulse {

Mainloop::Mainloop(const char* threadName) : mLoop(pa_threaded_mainloop_new()) {
    if (!mLoop) {
        throw std::runtime_error("cannot create PulseAudio's event loop");
    }
    pa_threaded_mainloop_set_name(mLoop, threadName);
    if (pa_threaded_mainloop_start(mLoop) < 0) {
        pa_threaded_mainloop_free(mLoop);
        throw std::runtime_error("cannot start PulseAudio's event loop");
    }
}

Mainloop::~Mainloop() {
    stop();
    pa_threaded_mainloop_free(mLoop);
}

void Mainloop::stop() noexcept {
    pa_threaded_mainloop_stop(mLoop);
}

Mainloop::Lock::Lock(const Mainloop& loop)
    : mLocked(pa_threaded_mainloop_in_thread(loop.mLoop) ? nullptr : loop.mLoop) {
    if (mLocked) {
        pa_threaded_mainloop_lock(mLocked);
    }
}

Mainloop::Lock::~Lock() {
    if (mLocked) {
        pa_threaded_mainloop_unlock(mLocked);
    }
}

}  // namespace pulse
