// SPDX-License-Identifier: Apache-2.0
// A recognizer turns utterances into text, one at a time. One thread at a time may use it. To add a recognizer,
// implement this interface and select it in makeRecognizer (Engine.cpp).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "voice/Languages.h"
#include "voice/SentenceFile.h"

namespace voice {

class Recognizer {
public:
    virtual ~Recognizer() = default;
    // All functions throw std::exception when the recognizer fails.
    virtual void begin() = 0;
    // The next samples of the utterance at 16 kHz, from a few milliseconds to a few seconds.
    virtual void accept(const int16_t* samples, std::size_t count) = 0;
    // The partial result; may be empty.
    virtual std::string partial() = 0;
    // Ends the utterance and returns its text; empty for a rejection.
    virtual std::string finish() = 0;
};

// Loads the models of the language, which takes up to a second. Removes from `commands` each sentence that has a word
// without a pronunciation. Throws std::exception if a model is missing or broken.
std::unique_ptr<Recognizer> makeRecognizer(const Language& language, SentenceFile& commands);

}  // namespace voice
