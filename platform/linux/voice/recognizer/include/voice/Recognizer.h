// SPDX-License-Identifier: Apache-2.0
// A speech recognizer: what an engine must offer to turn one utterance into words. Used by one thread at a time.
// Adding one: a class of this interface and a line in makeRecognizer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "voice/CommandFile.h"
#include "voice/Languages.h"

namespace voice {

class Recognizer {
public:
    virtual ~Recognizer() = default;
    // All throw std::exception when the engine fails.
    virtual void begin() = 0;
    // 16 kHz samples of the utterance, a few milliseconds to a few seconds.
    virtual void accept(const int16_t* samples, std::size_t count) = 0;
    // The words until now, for display; empty when there are none.
    virtual std::string partial() = 0;
    // Ends the utterance. The sentence, or empty when what was said is none.
    virtual std::string finish() = 0;
};

// Reads the language's models and makes the sentences of `commands` known; those that cannot be said are taken out of
// it. Takes up to a second. Throws std::exception when a model is missing or broken.
std::unique_ptr<Recognizer> makeRecognizer(const Language& language, CommandFile& commands);

}  // namespace voice
