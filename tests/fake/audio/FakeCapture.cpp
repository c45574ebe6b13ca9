// SPDX-License-Identifier: Apache-2.0
#include "fake/audio/FakeCapture.h"

#include <audio_io.h>
#include <speech_capture.h>
#include <string.h>
#include <time.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct audio_in_s {};

namespace {

struct Read {
    int result;  // below 0 or, for the capture library, not 0: a failure
    std::vector<short> samples;
};

std::mutex stateMutex;
audio_in_s input;
std::deque<Read> reads;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    reads.clear();
});

Read nextRead() {
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        if (!reads.empty()) {
            Read read = reads.front();
            reads.pop_front();
            return read;
        }
    }
    timespec time{0, 1'000'000};
    nanosleep(&time, nullptr);
    return {0, std::vector<short>(256)};
}

}  // namespace

namespace fake {

void queueSamples(const std::vector<short>& samples) {
    std::lock_guard<std::mutex> lock(stateMutex);
    reads.push_back({0, samples});
}

void queueReadResult(int result) {
    std::lock_guard<std::mutex> lock(stateMutex);
    reads.push_back({result, {}});
}

}  // namespace fake

extern "C" {

int audio_in_create(int rate, audio_channel_e channel, audio_sample_type_e type, audio_in_h* handle) {
    *handle = &input;
    return platform().call("audio_in_create", {str(rate), str(static_cast<int>(channel)), str(static_cast<int>(type))});
}

int audio_in_destroy(audio_in_h) {
    return platform().call("audio_in_destroy");
}

int audio_in_set_sound_stream_info(audio_in_h, sound_stream_info_h) {
    return platform().call("audio_in_set_sound_stream_info");
}

int audio_in_prepare(audio_in_h) {
    return platform().call("audio_in_prepare");
}

int audio_in_unprepare(audio_in_h) {
    return platform().call("audio_in_unprepare");
}

int audio_in_read(audio_in_h, void* buffer, unsigned int length) {
    platform().call("audio_in_read", {str(length)});
    const Read read = nextRead();
    if (read.result != 0 || read.samples.empty()) {
        return read.result;
    }
    memcpy(buffer, read.samples.data(), read.samples.size() * 2);
    return static_cast<int>(read.samples.size() * 2);
}

int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames) {
    return platform().call("sse_create",
                           {str(rate), str(static_cast<int>(channel)), str(static_cast<int>(type)), str(frames)});
}

int sse_init(void) {
    return platform().call("sse_init");
}

int sse_set_stream_info(sound_stream_info_h) {
    return platform().call("sse_set_stream_info");
}

int sse_prepare(void) {
    return platform().call("sse_prepare");
}

int sse_unprepare(void) {
    return platform().call("sse_unprepare");
}

int sse_deinit(void) {
    return platform().call("sse_deinit");
}

int sse_destroy(void) {
    return platform().call("sse_destroy");
}

int sse_read(void* buffer, int frames) {
    platform().call("sse_read", {str(frames)});
    const Read read = nextRead();
    if (read.result == 0 && !read.samples.empty()) {
        memcpy(buffer, read.samples.data(), read.samples.size() * 2);
    }
    return read.result;
}

int sse_trigger_wakeup_word_recording(int level) {
    return platform().call("sse_trigger_wakeup_word_recording", {str(level)});
}

}  // extern "C"
