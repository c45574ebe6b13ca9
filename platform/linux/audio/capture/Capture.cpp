// SPDX-License-Identifier: Apache-2.0
#include "Capture.h"

#include "audio_io.h"

namespace audio {

int Capture::prepare() {
    const std::lock_guard lock(mMutex);
    if (mSource) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    mSource = openCaptureSource(mFormat);
    return AUDIO_IO_ERROR_NONE;
}

int Capture::unprepare() {
    std::shared_ptr<CaptureSource> source;
    {
        const std::lock_guard lock(mMutex);
        source = std::move(mSource);
    }
    if (!source) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    source->interrupt();
    return AUDIO_IO_ERROR_NONE;
}

int Capture::read(int16_t* samples, std::size_t frames) {
    std::shared_ptr<CaptureSource> source;
    {
        const std::lock_guard lock(mMutex);
        source = mSource;
    }
    if (!source) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    const status::Work work(mSupervisor, "capture");
    return source->read(samples, frames) ? AUDIO_IO_ERROR_NONE : AUDIO_IO_ERROR_DEVICE_NOT_OPENED;
}

int checkFormat(int rate, int channel, int type) {
    if (rate < 8000 || rate > 48000 || (channel != AUDIO_CHANNEL_MONO && channel != AUDIO_CHANNEL_STEREO) ||
        (type != AUDIO_SAMPLE_TYPE_U8 && type != AUDIO_SAMPLE_TYPE_S16_LE)) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return type == AUDIO_SAMPLE_TYPE_S16_LE ? AUDIO_IO_ERROR_NONE : AUDIO_IO_ERROR_NOT_SUPPORTED;
}

}  // namespace audio
