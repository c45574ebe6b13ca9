// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "pulse/Context.h"
#include "pulse/Operation.h"

namespace pulse {

// Owns one stream of 16-bit samples in one channel to the default loudspeaker. Created, used, and destroyed under the
// loop's lock.
class PlaybackStream {
public:
    struct Events {
        std::function<void()> ready;
        // Fills the buffer with the next samples.
        std::function<void(int16_t* samples, std::size_t count)> wanted;
    };
    struct Settings {
        const char* name;
        const char* role;  // such as "music"
        unsigned rate;     // in Hz
        unsigned latency;  // in milliseconds
    };

    // Starts playing as soon as the stream is ready. The events come on the loop and must not destroy the stream;
    // either may be empty. Throws std::runtime_error.
    PlaybackStream(const Context& context, const Settings& settings, Events events);
    ~PlaybackStream();
    PlaybackStream(const PlaybackStream&) = delete;
    PlaybackStream& operator=(const PlaybackStream&) = delete;

    // Pauses or resumes the stream. `done` is called on the loop.
    Operation pause(bool paused, std::function<void(bool succeeded)> done);

private:
    static void stateChanged(pa_stream* stream, void* self) noexcept;
    static void writable(pa_stream* stream, std::size_t bytes, void* self) noexcept;

    pa_stream* mStream;
    Events mEvents;
};

}  // namespace pulse
