// SPDX-License-Identifier: Apache-2.0
#include "Listener.h"

#include <stdexcept>

#include "speech_capture.h"

namespace {

constexpr int kRate = 16000;
constexpr int kBlock = 256;

void demand(int code, const char* what) {
    if (code != 0) {
        throw std::runtime_error(std::string(what) + " answers " + std::to_string(code));
    }
}

}  // namespace

AudioIn::AudioIn(audio_channel_e channel) {
    demand(audio_in_create(kRate, channel, AUDIO_SAMPLE_TYPE_S16_LE, &mHandle), "audio_in_create");
    demand(audio_in_prepare(mHandle), "audio_in_prepare");
}

AudioIn::~AudioIn() {
    audio_in_destroy(mHandle);
}

tone::Samples AudioIn::capture(double seconds) const {
    tone::Samples samples(static_cast<std::size_t>(kRate * seconds) / kBlock * kBlock);
    for (std::size_t at = 0; at < samples.size(); at += kBlock) {
        if (read(&samples[at], kBlock * sizeof(int16_t)) != kBlock * sizeof(int16_t)) {
            throw std::runtime_error("audio_in_read fails");
        }
    }
    return samples;
}

bool AudioIn::captureUntil(const std::function<bool(const tone::Samples&)>& satisfied) const {
    for (int tenths = 0; tenths < 100; ++tenths) {
        if (satisfied(capture(0.1))) {
            return true;
        }
    }
    return false;
}

SpeechIn::SpeechIn(audio_channel_e channel) {
    demand(sse_create(kRate, channel, AUDIO_SAMPLE_TYPE_S16_LE, kBlock), "sse_create");
    demand(sse_init(), "sse_init");
    demand(sse_prepare(), "sse_prepare");
}

SpeechIn::~SpeechIn() {
    sse_unprepare();
    sse_destroy();
    sse_deinit();
}

tone::Samples SpeechIn::capture(double seconds) const {
    tone::Samples samples(static_cast<std::size_t>(kRate * seconds) / kBlock * kBlock);
    for (std::size_t at = 0; at < samples.size(); at += kBlock) {
        demand(sse_read(&samples[at], kBlock), "sse_read");
    }
    return samples;
}

int SpeechIn::reset(audio_channel_e channel) {
    const int codes[] = {sse_unprepare(), sse_destroy(),
                         sse_deinit(),    sse_create(kRate, channel, AUDIO_SAMPLE_TYPE_S16_LE, kBlock),
                         sse_init(),      sse_prepare()};
    for (const int code : codes) {
        if (code != 0) {
            return code;
        }
    }
    return 0;
}
