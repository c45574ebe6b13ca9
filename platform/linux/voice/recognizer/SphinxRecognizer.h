// SPDX-License-Identifier: Apache-2.0
// A recognizer that uses PocketSphinx.
//
// While the person speaks, it decodes with a grammar of the sentences to get partial results. At the end, it decodes
// the whole utterance again, normalized over its full length, to get the result. It decodes the free words of a
// sentence a third time with the open language model, which it loads on first use.
#pragma once

#include <future>
#include <vector>

#include "speech/Dither.h"
#include "sphinx/Decoder.h"
#include "voice/Recognizer.h"

namespace voice {

class SphinxRecognizer final : public Recognizer {
public:
    SphinxRecognizer(const Language& language, SentenceFile& commands);

    void begin() override;
    void accept(const int16_t* samples, std::size_t count) override;
    std::string partial() override;
    std::string finish() override;

private:
    // The accepted words before and after the free words. Without free words, all are in `before`; after a rejection,
    // it is empty.
    struct Spoken {
        std::string before;
        std::string after;
        bool hasFreeWords = false;
    };

    Spoken splitText();
    // Decodes the free words. endsBefore: other words follow them.
    std::string dictate(bool endsBefore);
    void loadDictation();

    const Language mLanguage;
    sphinx::Decoder mDecoder;
    std::future<std::unique_ptr<sphinx::Decoder>> mLoading;
    std::unique_ptr<sphinx::Decoder> mDictation;
    speech::Dither mDither;
    std::vector<int16_t> mUtterance;
};

}  // namespace voice
