// SPDX-License-Identifier: Apache-2.0
// The speech capture interface, which has one instance per process.
#include <memory>
#include <mutex>

#include "SpeechCapture.h"
#include "process/Guard.h"
#include "speech_capture.h"

namespace {

using audio::SpeechCapture;
using process::guarded;

// The lock guards only the pointer. A read runs without it, so that another thread can end the read.
class Instance {
public:
    std::shared_ptr<SpeechCapture> get() {
        const std::lock_guard lock(mMutex);
        return mCapture;
    }
    int create(const audio::Format& format, int frames) {
        const std::lock_guard lock(mMutex);
        if (mCapture) {
            return AUDIO_IO_ERROR_INVALID_STATE;
        }
        mCapture = std::make_shared<SpeechCapture>(format, frames);
        return AUDIO_IO_ERROR_NONE;
    }
    std::shared_ptr<SpeechCapture> release() {
        const std::lock_guard lock(mMutex);
        return std::move(mCapture);
    }

private:
    std::mutex mMutex;
    std::shared_ptr<SpeechCapture> mCapture;
};

// Runs the action on the instance. Without an instance, or after an exception, the call fails.
template <typename Action>
int withCapture(int failure, const char* function, const Action& action) {
    return guarded(failure, function, [&]() -> int {
        const auto capture = process::shared<Instance>().get();
        return capture ? action(*capture) : AUDIO_IO_ERROR_INVALID_STATE;
    });
}

}  // namespace

int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames) {
    const int fault = audio::checkFormat(rate, channel, type);
    if (frames < 1 || frames > rate / 2) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    if (fault != AUDIO_IO_ERROR_NONE) {
        return fault;
    }
    return guarded(AUDIO_IO_ERROR_OUT_OF_MEMORY, __func__, [&] {
        return process::shared<Instance>().create({rate, channel}, frames);
    });
}

int sse_init(void) {
    return withCapture(AUDIO_IO_ERROR_INVALID_STATE, __func__, [](SpeechCapture&) { return AUDIO_IO_ERROR_NONE; });
}

int sse_set_stream_info(sound_stream_info_h stream_info) {
    return stream_info ? sse_init() : AUDIO_IO_ERROR_INVALID_PARAMETER;
}

int sse_prepare(void) {
    return withCapture(AUDIO_IO_ERROR_DEVICE_NOT_OPENED, __func__,
                       [](SpeechCapture& capture) { return capture.device().prepare(); });
}

int sse_unprepare(void) {
    return withCapture(AUDIO_IO_ERROR_INVALID_STATE, __func__,
                       [](SpeechCapture& capture) { return capture.device().unprepare(); });
}

// Does nothing, whether it is called before or after sse_destroy().
int sse_deinit(void) {
    return AUDIO_IO_ERROR_NONE;
}

int sse_destroy(void) {
    return guarded(AUDIO_IO_ERROR_INVALID_STATE, __func__, [] {
        const auto capture = process::shared<Instance>().release();
        if (!capture) {
            return AUDIO_IO_ERROR_INVALID_STATE;
        }
        capture->device().unprepare();
        return AUDIO_IO_ERROR_NONE;
    });
}

int sse_read(void* buffer, int frames) {
    if (!buffer) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return withCapture(AUDIO_IO_ERROR_DEVICE_NOT_OPENED, __func__,
                       [&](SpeechCapture& capture) { return capture.read(static_cast<int16_t*>(buffer), frames); });
}

int sse_trigger_wakeup_word_recording(int level) {
    return withCapture(AUDIO_IO_ERROR_OUT_OF_MEMORY, __func__, [&](SpeechCapture& capture) {
        capture.keepWakeup(level);
        return AUDIO_IO_ERROR_NONE;
    });
}
