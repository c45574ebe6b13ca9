// SPDX-License-Identifier: Apache-2.0
#include "pulse/Stream.h"

namespace pulse {

namespace {

void closeOnceOpen(pa_stream* stream, void*) noexcept {
    if (pa_stream_get_state(stream) == PA_STREAM_READY) {
        pa_stream_disconnect(stream);
    }
    endUnanswered(stream);
}

}  // namespace

void closeStream(pa_stream* stream) noexcept {
    const bool opening = pa_stream_get_state(stream) == PA_STREAM_CREATING;
    pa_stream_set_state_callback(stream, opening ? closeOnceOpen : nullptr, nullptr);
    pa_stream_set_read_callback(stream, nullptr, nullptr);
    pa_stream_set_write_callback(stream, nullptr, nullptr);
    pa_stream_set_moved_callback(stream, nullptr, nullptr);
    if (!opening) {
        pa_stream_disconnect(stream);
    }
    pa_stream_unref(stream);  // the context keeps a stream that is still opening
}

void endUnanswered(pa_stream* stream) noexcept {
    pa_context* context = pa_stream_get_context(stream);
    if (pa_stream_get_state(stream) == PA_STREAM_FAILED && pa_context_errno(context) == PA_ERR_TIMEOUT) {
        pa_context_disconnect(context);
    }
}

}  // namespace pulse
