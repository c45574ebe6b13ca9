// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>

#include "pulse/Context.h"

namespace pulse {

// Owns one stream of captured 16-bit samples. Created, used, and destroyed under the loop's lock.
class RecordStream {
public:
    struct Events {
        std::function<void()> ready;
        // Captured bytes. Null data means a gap of that many bytes.
        std::function<void(const void* data, std::size_t bytes)> data;
        // The stream could not be opened, or it ended; the text is the reason.
        std::function<void(const char* why)> failed;
    };

    // Captures from the server's default source, or from the one in PULSE_SOURCE, in fragments of `fragment` bytes. The
    // events come on the loop and must not destroy the stream. Throws std::runtime_error.
    RecordStream(const Context& context, const char* name, int rate, int channels, std::size_t fragment, Events events);
    ~RecordStream();
    RecordStream(const RecordStream&) = delete;
    RecordStream& operator=(const RecordStream&) = delete;

private:
    static void stateChanged(pa_stream* stream, void* self) noexcept;
    static void readable(pa_stream* stream, std::size_t bytes, void* self) noexcept;

    pa_stream* mStream;
    Events mEvents;
};

}  // namespace pulse
