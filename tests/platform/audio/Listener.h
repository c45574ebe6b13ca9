// SPDX-License-Identifier: Apache-2.0
// Reads the microphone as the recorder does, block by block.
#pragma once

#include <functional>

#include "Tone.h"
#include "audio_io.h"

// Ready to read: 16 kHz, one channel, prepared.
class AudioIn {
public:
    explicit AudioIn(audio_channel_e channel = AUDIO_CHANNEL_MONO);
    ~AudioIn();
    AudioIn(const AudioIn&) = delete;
    AudioIn& operator=(const AudioIn&) = delete;

    audio_in_h handle() const { return mHandle; }
    int read(void* buffer, unsigned bytes) const { return audio_in_read(mHandle, buffer, bytes); }
    // Reads this much sound; throws when a read fails.
    tone::Samples capture(double seconds) const;
    // Reads until the last tenth of a second satisfies; false after ten seconds of sound.
    bool captureUntil(const std::function<bool(const tone::Samples&)>& satisfied) const;

private:
    audio_in_h mHandle = nullptr;
};

// The speech capture, created and prepared.
class SpeechIn {
public:
    explicit SpeechIn(audio_channel_e channel = AUDIO_CHANNEL_STEREO);
    ~SpeechIn();
    SpeechIn(const SpeechIn&) = delete;
    SpeechIn& operator=(const SpeechIn&) = delete;

    tone::Samples capture(double seconds) const;
    // Makes the recorder's calls after a failed read. Returns the first code that is not 0.
    static int reset(audio_channel_e channel = AUDIO_CHANNEL_STEREO);
};
