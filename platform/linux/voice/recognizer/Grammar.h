// SPDX-License-Identifier: Apache-2.0
// The sentences as a grammar for the decoder. Beside them lies a loop over all phones, for what fits no sentence, and
// one for the free end of a sentence; both cost something for each phone, so that a sentence wins where it fits.
#pragma once

#include "sphinx/Decoder.h"
#include "sphinx/Dictionary.h"
#include "sphinx/Fsg.h"
#include "voice/CommandFile.h"

namespace voice {

// Words that only the decoder sees: a phone of the free end, and one of speech that is no sentence.
constexpr char kFreePhone = '*';
constexpr char kStrangePhone = '?';

// Every word that the grammar uses with its sounds, the phones' own included. Sentences with a word that nobody can
// say are taken out of `commands` with a log line each.
sphinx::Pronunciations soundsOf(CommandFile& commands, const std::string& dictionary);

// `decoder` must know the words.
sphinx::Fsg buildGrammar(const CommandFile& commands, const sphinx::Decoder& decoder);

}  // namespace voice
