// SPDX-License-Identifier: Apache-2.0
// The speech capture interface: one instance a process. The lock guards the instance's coming and going only; a read
// runs outside it, so that another thread can end it.
#include <memory>
#include <mutex>

#include "SpeechCapture.h"
#include "speech_capture.h"

namespace {

std::mutex mutex;
std::shared_ptr<audio::SpeechCapture> instance;

std::shared_ptr<audio::SpeechCapture> current() {
    std::lock_guard lock(mutex);
    return instance;
}

}  // namespace

int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames) {
    int fault = audio::checkFormat(rate, channel, type);
    if (frames < 1 || frames > rate / 2) {
        fault = AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    std::lock_guard lock(mutex);
    if (fault == AUDIO_IO_ERROR_NONE && instance) {
        fault = AUDIO_IO_ERROR_INVALID_STATE;
    }
    if (fault == AUDIO_IO_ERROR_NONE) {
        instance = std::make_shared<audio::SpeechCapture>(audio::Format{rate, channel}, frames);
    }
    return fault;
}

int sse_init(void) {
    return current() ? AUDIO_IO_ERROR_NONE : AUDIO_IO_ERROR_INVALID_STATE;
}

int sse_set_stream_info(sound_stream_info_h stream_info) {
    return stream_info ? sse_init() : AUDIO_IO_ERROR_INVALID_PARAMETER;
}

int sse_prepare(void) {
    const auto capture = current();
    return capture ? capture->device().prepare() : AUDIO_IO_ERROR_INVALID_STATE;
}

int sse_unprepare(void) {
    const auto capture = current();
    return capture ? capture->device().unprepare() : AUDIO_IO_ERROR_INVALID_STATE;
}

// Nothing of its own to undo: comes before or after sse_destroy().
int sse_deinit(void) {
    return AUDIO_IO_ERROR_NONE;
}

int sse_destroy(void) {
    std::shared_ptr<audio::SpeechCapture> capture;
    {
        std::lock_guard lock(mutex);
        capture = std::move(instance);
    }
    if (!capture) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    capture->device().unprepare();
    return AUDIO_IO_ERROR_NONE;
}

int sse_read(void* buffer, int frames) {
    const auto capture = current();
    if (!buffer) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return capture ? capture->read(static_cast<int16_t*>(buffer), frames) : AUDIO_IO_ERROR_INVALID_STATE;
}

int sse_trigger_wakeup_word_recording(int level) {
    const auto capture = current();
    if (!capture) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    capture->keepWakeup(level);
    return AUDIO_IO_ERROR_NONE;
}
