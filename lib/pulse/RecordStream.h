// SPDX-License-Identifier: Apache-2.0
// Owns one stream of captured sound. Made, used and destroyed under the loop's lock.
#pragma once

#include <cstddef>
#include <functional>

#include "pulse/Context.h"

namespace pulse {

class RecordStream {
public:
    struct Events {
        std::function<void()> ready;
        // Captured bytes; null data stands for a hole of that many bytes.
        std::function<void(const void* data, std::size_t bytes)> data;
        // The stream could not be opened or has ended; why.
        std::function<void(const char* why)> failed;
    };

    // Captures from the server's default source (or the one that PULSE_SOURCE names) in pieces of `fragment` bytes. The
    // events come on the loop and must not destroy the stream. Throws std::runtime_error.
    RecordStream(pa_context* context, const char* name, const pa_sample_spec& spec, std::size_t fragment,
                 Events events);
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
