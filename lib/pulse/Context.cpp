// SPDX-License-Identifier: Apache-2.0
#include "pulse/Context.h"

#include <pulse/ext-stream-restore.h>

#include <stdexcept>
#include <utility>

#include "pulse/Operation.h"

namespace pulse {

Context::Context(pa_mainloop_api* loop, const char* name, OnState onState)
    : mContext(pa_context_new(loop, name)), mOnState(std::move(onState)) {
    if (!mContext) {
        throw std::runtime_error("cannot create a PulseAudio context");
    }
    pa_context_set_state_callback(mContext, stateChanged, this);
}

Context::~Context() {
    pa_context_set_state_callback(mContext, nullptr, nullptr);
    pa_context_set_subscribe_callback(mContext, nullptr, nullptr);
    pa_ext_stream_restore_set_subscribe_cb(mContext, nullptr, nullptr);
    pa_context_disconnect(mContext);
    pa_context_unref(mContext);
}

bool Context::connect() {
    return pa_context_connect(mContext, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void Context::watch(OnChange onChange) {
    mOnChange = std::move(onChange);
    constexpr int KINDS = PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SINK_INPUT;
    pa_context_set_subscribe_callback(mContext, changed, this);
    const Operation devices(
        pa_context_subscribe(mContext, static_cast<pa_subscription_mask_t>(KINDS), nullptr, nullptr));
    pa_ext_stream_restore_set_subscribe_cb(mContext, rolesChanged, this);
    const Operation roles(pa_ext_stream_restore_subscribe(mContext, 1, nullptr, nullptr));
}

void Context::stateChanged(pa_context* context, void* self) noexcept {
    const pa_context_state_t state = pa_context_get_state(context);
    const State known = PA_CONTEXT_IS_GOOD(state) ? State::Connecting : State::Ended;
    static_cast<Context*>(self)->mOnState(state == PA_CONTEXT_READY ? State::Ready : known);
}

void Context::changed(pa_context*, pa_subscription_event_type_t what, uint32_t, void* self) noexcept {
    const OnChange& on = static_cast<Context*>(self)->mOnChange;
    const bool ofStream = (what & PA_SUBSCRIPTION_EVENT_FACILITY_MASK) == PA_SUBSCRIPTION_EVENT_SINK_INPUT;
    ofStream ? on.playback() : on.volume();
}

void Context::rolesChanged(pa_context*, void* self) noexcept {
    static_cast<Context*>(self)->mOnChange.volume();
}

}  // namespace pulse
