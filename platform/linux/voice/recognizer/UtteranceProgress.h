// SPDX-License-Identifier: Apache-2.0
// Finds the beginning and end of speech in one utterance, and passes the speech to the recognizer. Not thread-safe.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "speech/SpeechGate.h"
#include "voice/Recognizer.h"
#include "voice/Utterance.h"

namespace voice {

class UtteranceProgress {
public:
    // Keeps references to its arguments.
    UtteranceProgress(const UtteranceSettings& settings, const UtteranceEvents& events);

    // Processes one block. Reports the beginning of speech and each new partial result.
    void accept(Recognizer& recognizer, const int16_t* samples, std::size_t count);
    bool isOver() const;
    bool hasSpeech() const { return mSpeaking; }

private:
    void feed(Recognizer& recognizer);
    void reportPartialResult(Recognizer& recognizer);

    const UtteranceSettings& mSettings;
    const UtteranceEvents& mEvents;
    speech::SpeechGate mGate;
    std::vector<int16_t> mPending;  // not yet passed to the recognizer
    std::string mPartialResult;
    bool mSpeaking = false;
    // In milliseconds.
    int mElapsed = 0;
    int mPartialResultAt = 0;
    int mChangedAt = 0;
};

}  // namespace voice
