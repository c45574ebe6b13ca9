// SPDX-License-Identifier: Apache-2.0
#include "pulse/RecordStream.h"

#include <stdexcept>

namespace pulse {

namespace {

pa_stream* create(const Context& context, const char* name, int rate, int channels) {
    const pa_sample_spec spec{PA_SAMPLE_S16LE, static_cast<uint32_t>(rate), static_cast<uint8_t>(channels)};
    return pa_stream_new(context.get(), name, &spec, nullptr);
}

}  // namespace

RecordStream::RecordStream(const Context& context, const char* name, int rate, int channels, std::size_t fragment,
                           Events events)
    : mStream(create(context, name, rate, channels)), mEvents(std::move(events)) {
    if (!mStream) {
        throw std::runtime_error(context.error());
    }
    pa_stream_set_state_callback(mStream, stateChanged, this);
    pa_stream_set_read_callback(mStream, readable, this);
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<uint32_t>(-1);
    buffer.fragsize = static_cast<uint32_t>(fragment);
    // Without this flag, the source chooses the latency, which may be seconds.
    if (pa_stream_connect_record(mStream, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY) < 0) {
        pa_stream_unref(mStream);
        throw std::runtime_error(context.error());
    }
}

RecordStream::~RecordStream() {
    pa_stream_set_state_callback(mStream, nullptr, nullptr);
    pa_stream_set_read_callback(mStream, nullptr, nullptr);
    pa_stream_disconnect(mStream);
    pa_stream_unref(mStream);
}

void RecordStream::stateChanged(pa_stream* stream, void* self) noexcept {
    Events& events = static_cast<RecordStream*>(self)->mEvents;
    switch (pa_stream_get_state(stream)) {
        case PA_STREAM_READY:
            events.ready();
            break;
        case PA_STREAM_FAILED:
        case PA_STREAM_TERMINATED:
            events.failed(pa_strerror(pa_context_errno(pa_stream_get_context(stream))));
            break;
        default:
            break;
    }
}

void RecordStream::readable(pa_stream* stream, std::size_t, void* self) noexcept {
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(stream, &data, &bytes) >= 0 && bytes > 0) {
        static_cast<RecordStream*>(self)->mEvents.data(data, bytes);
        pa_stream_drop(stream);
    }
}

}  // namespace pulse
