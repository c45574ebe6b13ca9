// SPDX-License-Identifier: Apache-2.0
// The file of sentence templates, taken apart. docs/understanding.md describes it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sphinx/Dictionary.h"
#include "voice/Phrase.h"

namespace voice {

// A field of the result's data: text as it is, "<list>" or "*".
using Fields = std::vector<std::pair<std::string, std::string>>;

struct Command {
    std::string agent;
    std::string actionName;
    std::string actionType;
    std::string onlyAfter;  // the action that must have come right before; empty: any
    Fields fields;
    std::vector<Phrase> sentences;
};

struct CommandFile {
    NameLists lists;
    sphinx::Pronunciations sounds;           // of words that the dictionary lacks or says otherwise
    std::map<std::string, int> recipeSteps;  // by the dish's value in its list
    std::vector<Command> commands;
};

using LineFault = std::function<void(int line, const std::string& what)>;

// Every line that makes no sense is reported, with its number, and left out.
CommandFile parseCommands(const std::string& text, const LineFault& report);

// The same from a file, with one log line for each fault. False when the file cannot be read.
bool readCommands(const std::string& path, CommandFile& commands);

}  // namespace voice
