// SPDX-License-Identifier: Apache-2.0
// PocketSphinx behind the recognizer's interface.
//
// A grammar of the sentences is decoded while the person speaks, for the partial words. At the end the whole utterance
// is decoded again, normalised over its whole length, which is what counts. When it has a free end, the sound of that
// end is decoded a third time with the open language model, which is read on first need.
#pragma once

#include <future>
#include <vector>

#include "speech/Dither.h"
#include "sphinx/Decoder.h"
#include "voice/Recognizer.h"

namespace voice {

class SphinxRecognizer final : public Recognizer {
public:
    SphinxRecognizer(const Language& language, CommandFile& commands);

    void begin() override;
    void accept(const int16_t* samples, std::size_t count) override;
    std::string partial() override;
    std::string finish() override;

private:
    // The words of the sentence, with a trailing "*" where a free end was spoken. Empty: no sentence.
    std::string sentence(int& freeFromFrame) const;
    std::string dictate(std::size_t fromSample);
    void loadDictation();

    const Language mLanguage;
    sphinx::Decoder mDecoder;
    std::future<std::unique_ptr<sphinx::Decoder>> mLoading;
    std::unique_ptr<sphinx::Decoder> mDictation;
    speech::Dither mDither;
    std::vector<int16_t> mUtterance;
};

}  // namespace voice
