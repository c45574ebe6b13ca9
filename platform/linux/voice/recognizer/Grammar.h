// SPDX-License-Identifier: Apache-2.0
// Builds the decoder's grammar from the sentences. The grammar also has a loop of all phones as a filler for speech
// that matches no sentence, and other loops for the free words of a sentence. Each phone in a loop has a low
// probability, so that a matching sentence wins.
#pragma once

#include "sphinx/Decoder.h"
#include "sphinx/Dictionary.h"
#include "sphinx/Fsg.h"
#include "voice/SentenceFile.h"

namespace voice {

// Prefixes of the decoder's internal words: a phone of free words, and a phone of the filler.
constexpr char kFreePhone = '*';
constexpr char kFillerPhone = '?';

// The pronunciation of every word in the grammar, including the phones. Removes from `commands` each sentence that has
// a word without a pronunciation, and logs it.
sphinx::Pronunciations soundsOf(SentenceFile& commands, const std::string& dictionary);

// The decoder's dictionary must contain the words.
sphinx::Fsg buildGrammar(const SentenceFile& commands, const sphinx::Decoder& decoder);

}  // namespace voice
