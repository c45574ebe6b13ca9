// SPDX-License-Identifier: Apache-2.0
#include "pulse/PlaybackStream.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "pulse/Stream.h"

namespace pulse {

namespace {

struct FreeProperties {
    void operator()(pa_proplist* list) const noexcept { pa_proplist_free(list); }
};

pa_stream* create(const Context& context, const PlaybackStream::Settings& settings) {
    const pa_sample_spec spec{PA_SAMPLE_S16LE, settings.rate, 1};
    const std::unique_ptr<pa_proplist, FreeProperties> properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, settings.role);
    return pa_stream_new_with_proplist(context.get(), settings.name, &spec, nullptr, properties.get());
}

pa_buffer_attr bufferOf(const PlaybackStream::Settings& settings) {
    const auto unset = static_cast<uint32_t>(-1);
    const auto bytes = static_cast<uint32_t>(settings.rate * settings.latency / 1000 * sizeof(int16_t));
    return {unset, bytes, unset, unset, unset};
}

}  // namespace

PlaybackStream::PlaybackStream(const Context& context, const Settings& settings, Events events)
    : mStream(create(context, settings)), mEvents(std::move(events)) {
    if (!mStream) {
        throw std::runtime_error(context.error());
    }
    pa_stream_set_state_callback(mStream, stateChanged, this);
    pa_stream_set_write_callback(mStream, writable, this);
    const pa_buffer_attr buffer = bufferOf(settings);
    if (pa_stream_connect_playback(mStream, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr) < 0) {
        pa_stream_unref(mStream);
        throw std::runtime_error(context.error());
    }
}

PlaybackStream::~PlaybackStream() {
    closeStream(mStream);
}

Operation PlaybackStream::pause(bool paused, std::function<void(bool)> done) {
    using Done = std::function<void(bool)>;
    auto callback = std::make_shared<Done>(std::move(done));
    pa_operation* operation = pa_stream_cork(
        mStream, paused,
        [](pa_stream*, int success, void* then) noexcept { (*static_cast<Done*>(then))(success != 0); },
        callback.get());
    return Operation(operation, std::move(callback));
}

void PlaybackStream::stateChanged(pa_stream* stream, void* self) noexcept {
    const Events& events = static_cast<PlaybackStream*>(self)->mEvents;
    if (pa_stream_get_state(stream) == PA_STREAM_READY && events.ready) {
        events.ready();
    }
}

void PlaybackStream::writable(pa_stream* stream, std::size_t bytes, void* self) noexcept {
    const Events& events = static_cast<PlaybackStream*>(self)->mEvents;
    void* samples = nullptr;
    if (events.wanted && pa_stream_begin_write(stream, &samples, &bytes) == 0 && samples) {
        events.wanted(static_cast<int16_t*>(samples), bytes / sizeof(int16_t));
        pa_stream_write(stream, samples, bytes, nullptr, 0, PA_SEEK_RELATIVE);
    }
}

}  // namespace pulse
