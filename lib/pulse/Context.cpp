// SPDX-License-Identifier: Apache-2.0
#include "pulse/Context.h"

#include <stdexcept>

namespace pulse {

Context::Context(const Mainloop& loop, const char* name, OnState onState)
    : mContext(pa_context_new(loop.api(), name)), mOnState(std::move(onState)) {
    if (!mContext) {
        throw std::runtime_error("no PulseAudio context");
    }
    pa_context_set_state_callback(mContext, stateChanged, this);
}

Context::~Context() {
    pa_context_set_state_callback(mContext, nullptr, nullptr);
    pa_context_set_subscribe_callback(mContext, nullptr, nullptr);
    pa_context_disconnect(mContext);
    pa_context_unref(mContext);
}

bool Context::connect() {
    return pa_context_connect(mContext, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void Context::stateChanged(pa_context* context, void* self) noexcept {
    static_cast<Context*>(self)->mOnState(pa_context_get_state(context));
}

}  // namespace pulse
