// SPDX-License-Identifier: Apache-2.0
// What a person can say, as a small tree:  (open | start) [the] <app> [app]   or   search for *
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace voice {

struct Phrase {
    enum Kind {
        Word,     // text
        All,      // parts, one after the other
        OneOf,    // one of the parts; an empty All among them makes it optional
        Name,     // one of the names of the list `text`
        Anything  // any words, up to the end
    };
    Kind kind = All;
    std::string text;
    std::vector<Phrase> parts;
};

// A thing with the ways to say it. `value` is what the result carries.
struct Named {
    std::string value;
    Phrase phrase;
};
using NameLists = std::map<std::string, std::vector<Named>>;

// Throws std::invalid_argument with a text for the log on a phrase that is not well formed. Words become lower case.
Phrase parsePhrase(const std::string& text);

// The words in it and in the lists that it names.
void collectWords(const Phrase& phrase, const NameLists& lists, std::set<std::string>& words);

// The lists that it names.
void collectLists(const Phrase& phrase, std::set<std::string>& lists);

// What stood for each named list (its value) and, under "*", for the free part, in the words of the speaker.
using Filling = std::map<std::string, std::string>;

// Whether the words are this phrase; fills in what stood where.
bool matches(const Phrase& phrase, const NameLists& lists, const std::vector<std::string>& words, Filling& filling);

std::vector<std::string> splitWords(const std::string& text);

}  // namespace voice
