// SPDX-License-Identifier: Apache-2.0
// The contents of the sentence file, which docs/understanding.md describes.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sphinx/Dictionary.h"
#include "voice/Sentence.h"

namespace voice {

// A field of the result's data: literal text, "<list>", or "*".
using Fields = std::vector<std::pair<std::string, std::string>>;

// The sentences with one intent.
struct Command {
    std::string agent;
    std::string actionName;
    std::string actionType;
    std::string onlyAfter;  // the required previous action; empty: any
    Fields fields;
    std::vector<Sentence> sentences;
};

struct SentenceFile {
    NameLists lists;
    sphinx::Pronunciations sounds;           // take precedence over the dictionary
    std::map<std::string, int> recipeSteps;  // by the dish's value in its list
    std::vector<Command> commands;
};

using LineFault = std::function<void(int line, const std::string& what)>;

// Skips each invalid line and reports it with its number.
SentenceFile parseSentenceFile(const std::string& text, const LineFault& report);

// Reads the file and logs each invalid line. False if the file cannot be read.
bool readSentenceFile(const std::string& path, SentenceFile& commands);

}  // namespace voice
