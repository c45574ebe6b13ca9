// SPDX-License-Identifier: Apache-2.0
#include "SpeechCapture.h"

#include <algorithm>

#include "WakeupRecordings.h"
#include "audio/SoundThread.h"
#include "audio_io.h"
#include "process/Owner.h"

namespace audio {

namespace {
constexpr int kKeptSeconds = 2;
}

SpeechCapture::SpeechCapture(const Format& format, int frames)
    : mCapture(format),
      mMost(frames),
      mBlock(static_cast<std::size_t>(frames) * format.channels),
      mLast(wakeupRecordingsFolder().empty() ? 0 : static_cast<std::size_t>(format.rate) * kKeptSeconds) {}

int SpeechCapture::read(int16_t* out, int frames) {
    if (frames < 1 || frames > mMost) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    const bool stereo = mCapture.format().channels == 2;
    const int fault = mCapture.read(stereo ? mBlock.data() : out, frames);
    if (fault != AUDIO_IO_ERROR_NONE) {
        return fault;
    }
    for (int i = 0; stereo && i < frames; ++i) {
        out[i] = static_cast<int16_t>((mBlock[2 * i] + mBlock[2 * i + 1]) / 2);
    }
    remember(out, frames);
    return AUDIO_IO_ERROR_NONE;
}

void SpeechCapture::remember(const int16_t* samples, std::size_t count) {
    if (mLast.empty()) {
        return;
    }
    const std::lock_guard lock(mMutex);
    for (std::size_t i = 0; i < count; ++i) {
        mLast[mNext] = samples[i];
        mNext = (mNext + 1) % mLast.size();
    }
}

void SpeechCapture::keepWakeup(int level) {
    if (mLast.empty()) {
        return;
    }
    std::vector<int16_t> samples;
    {
        const std::lock_guard lock(mMutex);
        samples = mLast;
        std::rotate(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(mNext), samples.end());
    }
    process::shared<SoundThread>().post([samples = std::move(samples), rate = mCapture.format().rate, level] {
        writeWakeupRecording(samples, rate, level);
    });
}

}  // namespace audio
