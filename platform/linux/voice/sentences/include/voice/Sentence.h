// SPDX-License-Identifier: Apache-2.0
// A sentence of the sentence file as a tree:  (open | start) [the] <app> [app]   or   search for *
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace voice {

struct Sentence {
    enum Kind {
        Word,     // text
        All,      // the parts in order
        OneOf,    // one of the parts; optional if one of them is an empty All
        Name,     // one of the names of the list `text`
        Anything  // one or more words of any kind; at most one on each way through the sentence
    };
    Kind kind = All;
    std::string text;
    std::vector<Sentence> parts;
};

// A name of a list. The result contains its value.
struct Named {
    std::string value;
    Sentence spoken;
};
using NameLists = std::map<std::string, std::vector<Named>>;

// Throws std::invalid_argument, with a message for the log, if the sentence is malformed. Converts words to lower case.
Sentence parseSentence(const std::string& text);

// Adds the words of the sentence and of its lists.
void collectWords(const Sentence& sentence, const NameLists& lists, std::set<std::string>& words);

// Adds the names of its lists.
void collectLists(const Sentence& sentence, std::set<std::string>& lists);

bool containsAnything(const Sentence& sentence);

// Maps each list to the value of the recognized name, and "*" to the free words.
using SlotValues = std::map<std::string, std::string>;

// Whether the sentence matches the words. If so, `slots` contains the values. The free words are as few as possible.
bool matches(const Sentence& sentence, const NameLists& lists, const std::vector<std::string>& words,
             SlotValues& slots);

std::vector<std::string> splitWords(const std::string& text);

}  // namespace voice
