// SPDX-License-Identifier: Apache-2.0
// The sentences as a grammar for the decoder. It also has a loop of all phones as a filler for speech that fits no
// sentence, and another for the free end of a sentence. Each phone in a loop has a low probability, so that a sentence
// wins where it fits.
#pragma once

#include "sphinx/Decoder.h"
#include "sphinx/Dictionary.h"
#include "sphinx/Fsg.h"
#include "voice/SentenceFile.h"

namespace voice {

// Prefixes of words that only the decoder sees: a phone of a free end, and a phone of the filler.
constexpr char kFreePhone = '*';
constexpr char kFillerPhone = '?';

// The pronunciation of every word in the grammar, including the phones. Removes each sentence that has a word without a
// pronunciation from `commands`, and logs it.
sphinx::Pronunciations soundsOf(SentenceFile& commands, const std::string& dictionary);

// The decoder's dictionary must contain the words.
sphinx::Fsg buildGrammar(const SentenceFile& commands, const sphinx::Decoder& decoder);

}  // namespace voice
