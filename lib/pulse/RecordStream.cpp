// SPDX-License-Identifier: Apache-2.0
#include "pulse/RecordStream.h"

#include <stdexcept>
#include <utility>

#include "pulse/Stream.h"

namespace pulse {

namespace {

pa_stream* create(const Context& context, const RecordStream::Settings& settings) {
    const pa_sample_spec spec{PA_SAMPLE_S16LE, static_cast<uint32_t>(settings.rate),
                              static_cast<uint8_t>(settings.channels)};
    return pa_stream_new(context.get(), settings.name, &spec, nullptr);
}

}  // namespace

RecordStream::RecordStream(const Context& context, const Settings& settings, Events events)
    : mStream(create(context, settings)), mEvents(std::move(events)) {
    if (!mStream) {
        throw std::runtime_error(context.error());
    }
    pa_stream_set_state_callback(mStream, stateChanged, this);
    pa_stream_set_read_callback(mStream, readable, this);
    pa_stream_set_moved_callback(mStream, moved, this);
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<uint32_t>(-1);
    buffer.fragsize = static_cast<uint32_t>(settings.fragment);
    // Without this flag, the source chooses the latency, which may be seconds.
    if (pa_stream_connect_record(mStream, settings.source, &buffer, PA_STREAM_ADJUST_LATENCY) < 0) {
        pa_stream_unref(mStream);
        throw std::runtime_error(context.error());
    }
}

RecordStream::~RecordStream() {
    closeStream(mStream);
}

// A stream that has failed may be reported again when its context ends.
void RecordStream::stateChanged(pa_stream* stream, void* self) noexcept {
    auto& owner = *static_cast<RecordStream*>(self);
    const pa_stream_state_t state = pa_stream_get_state(stream);
    if (state == PA_STREAM_READY) {
        owner.mEvents.ready();
    } else if (!PA_STREAM_IS_GOOD(state) && !std::exchange(owner.mEnded, true)) {
        owner.mEvents.failed(pa_strerror(pa_context_errno(pa_stream_get_context(stream))));
        endUnanswered(stream);
    }
}

void RecordStream::moved(pa_stream*, void* self) noexcept {
    static_cast<RecordStream*>(self)->mEvents.moved();
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
