// SPDX-License-Identifier: Apache-2.0
#include "voice/AudioSource.h"

namespace voice {

AudioSource::~AudioSource() {
    interrupt();
    if (mInput) {
        audio_in_destroy(mInput);
    }
}

bool AudioSource::open() {
    if (audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, &mInput) != AUDIO_IO_ERROR_NONE) {
        mInput = nullptr;
        return false;
    }
    std::lock_guard lock(mMutex);
    if (mInterrupted || audio_in_prepare(mInput) != AUDIO_IO_ERROR_NONE) {
        return false;
    }
    mCapturing = true;
    return true;
}

std::size_t AudioSource::read(int16_t* samples, std::size_t most) {
    const int bytes = audio_in_read(mInput, samples, static_cast<unsigned int>(most * sizeof(int16_t)));
    return bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(int16_t) : 0;
}

void AudioSource::interrupt() {
    std::lock_guard lock(mMutex);
    mInterrupted = true;
    if (mCapturing) {
        mCapturing = false;
        audio_in_unprepare(mInput);
    }
}

}  // namespace voice
