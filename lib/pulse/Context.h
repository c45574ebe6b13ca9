// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

#include <functional>

namespace pulse {

// Owns one connection to the sound server. Created, used, and destroyed under the loop's lock.
class Context {
public:
    enum class State { Connecting, Ready, Ended };
    using OnState = std::function<void(State)>;
    // Changes at the server, by this program or another.
    struct OnChange {
        std::function<void()> volume;    // a volume or the default loudspeaker changed
        std::function<void()> playback;  // a stream started, paused, resumed, or ended
    };

    // `onState` is called on the loop with every state and must not destroy the context. Throws std::runtime_error.
    Context(pa_mainloop_api* loop, const char* name, OnState onState);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    // Begins to connect; never starts a server. False if that fails immediately.
    bool connect();
    // Connecting or ready.
    bool isGood() const { return PA_CONTEXT_IS_GOOD(pa_context_get_state(mContext)); }
    // Requires a ready context. Called on the loop.
    void watch(OnChange onChange);

    pa_context* get() const { return mContext; }
    const char* error() const { return pa_strerror(pa_context_errno(mContext)); }

private:
    static void stateChanged(pa_context* context, void* self) noexcept;
    static void changed(pa_context* context, pa_subscription_event_type_t what, uint32_t index, void* self) noexcept;
    static void rolesChanged(pa_context* context, void* self) noexcept;

    pa_context* mContext;
    OnState mOnState;
    OnChange mOnChange;
};

}  // namespace pulse
