// SPDX-License-Identifier: Apache-2.0
// Owns one connection to the sound server. Made, used and destroyed under the loop's lock.
#pragma once

#include <functional>

#include "pulse/Mainloop.h"

namespace pulse {

class Context {
public:
    using OnState = std::function<void(pa_context_state_t)>;

    // `onState` is called on the loop with every state; it must not destroy the context. Throws std::runtime_error.
    Context(const Mainloop& loop, const char* name, OnState onState);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    // Begins to connect; never starts a server. False when that fails at once.
    bool connect();
    pa_context* get() const { return mContext; }
    const char* error() const { return pa_strerror(pa_context_errno(mContext)); }

private:
    static void stateChanged(pa_context* context, void* self) noexcept;

    pa_context* mContext;
    OnState mOnState;
};

}  // namespace pulse
