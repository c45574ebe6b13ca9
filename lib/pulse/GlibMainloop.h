// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/glib-mainloop.h>

#include <memory>

namespace pulse {

// Lets PulseAudio use the default GLib main context. Use it only on the thread that iterates the context; no lock is
// needed.
class GlibMainloop {
public:
    pa_mainloop_api* api() const { return pa_glib_mainloop_get_api(mLoop.get()); }

private:
    struct Free {
        void operator()(pa_glib_mainloop* loop) const noexcept { pa_glib_mainloop_free(loop); }
    };

    std::unique_ptr<pa_glib_mainloop, Free> mLoop{pa_glib_mainloop_new(nullptr)};
};

}  // namespace pulse
