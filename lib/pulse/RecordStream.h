// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "pulse/Context.h"

namespace pulse {

// Owns one stream of captured 16-bit samples. Created, used, and destroyed under the loop's lock.
class RecordStream {
public:
    struct Events {
        std::function<void()> ready;
        // The server connected the stream to another source.
        std::function<void()> moved;
        // Captured bytes. Null data means a gap of that many bytes.
        std::function<void(const void* data, std::size_t bytes)> data;
        // The stream could not be opened, or it ended; the text is the reason. The last event.
        std::function<void(const char* why)> failed;
    };

    struct Settings {
        const char* name;
        // Null lets the server choose: the default source, the one in PULSE_SOURCE, or the one to which the user moved
        // this program's stream.
        const char* source;
        int rate;
        int channels;
        std::size_t fragment;  // in bytes
    };

    // The events come on the loop and must not destroy the stream. Throws std::runtime_error.
    RecordStream(const Context& context, const Settings& settings, Events events);
    ~RecordStream();
    RecordStream(const RecordStream&) = delete;
    RecordStream& operator=(const RecordStream&) = delete;

    // The server's number of the source. Only after `ready`.
    uint32_t source() const { return pa_stream_get_device_index(mStream); }

private:
    static void stateChanged(pa_stream* stream, void* self) noexcept;
    static void moved(pa_stream* stream, void* self) noexcept;
    static void readable(pa_stream* stream, std::size_t bytes, void* self) noexcept;

    pa_stream* mStream;
    Events mEvents;
    bool mEnded = false;
};

}  // namespace pulse
