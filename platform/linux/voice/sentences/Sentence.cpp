// SPDX-License-Identifier: Apache-2.0
#include "voice/Sentence.h"

#include <algorithm>
#include <sstream>

namespace voice {

void collectWords(const Sentence& sentence, const NameLists& lists, std::set<std::string>& words) {
    if (sentence.kind == Sentence::Word) {
        words.insert(sentence.text);
    }
    if (sentence.kind == Sentence::Name) {
        for (const Named& named : lists.at(sentence.text)) {
            collectWords(named.spoken, lists, words);
        }
    }
    for (const Sentence& part : sentence.parts) {
        collectWords(part, lists, words);
    }
}

void collectLists(const Sentence& sentence, std::set<std::string>& lists) {
    if (sentence.kind == Sentence::Name) {
        lists.insert(sentence.text);
    }
    for (const Sentence& part : sentence.parts) {
        collectLists(part, lists);
    }
}

bool containsAnything(const Sentence& sentence) {
    return sentence.kind == Sentence::Anything ||
           std::any_of(sentence.parts.begin(), sentence.parts.end(), containsAnything);
}

std::vector<std::string> splitWords(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

}  // namespace voice
