// SPDX-License-Identifier: Apache-2.0
#include "voice/Sentence.h"

#include <algorithm>
#include <functional>

namespace voice {

namespace {

// Limits the time of the search.
constexpr int kMaxSteps = 100000;
// So many names are skipped in the time of one step.
constexpr std::size_t kNamesPerStep = 50;

// Whether the sentence can begin with the word, as far as its first item shows. Skips most names of a long list without
// a search.
bool mayBeginWith(const Sentence& sentence, const std::string& word) {
    const auto& parts = sentence.parts;
    if (sentence.kind == Sentence::Word) {
        return sentence.text == word;
    }
    if (sentence.kind == Sentence::All && !parts.empty()) {
        return mayBeginWith(parts.front(), word);
    }
    return sentence.kind != Sentence::OneOf ||
           std::any_of(parts.begin(), parts.end(), [&](const Sentence& part) { return mayBeginWith(part, word); });
}

// Searches by backtracking. `rest` returns whether the rest of the sentence matches the words from a position on.
class Matcher {
public:
    using Rest = std::function<bool(std::size_t)>;

    Matcher(const NameLists& lists, const std::vector<std::string>& words, SlotValues& slots)
        : mLists(lists), mWords(words), mSlots(slots) {}

    bool match(const Sentence& sentence, std::size_t at, const Rest& rest) {
        if (++mSteps > kMaxSteps) {
            return false;
        }
        switch (sentence.kind) {
            case Sentence::Word:
                return at < mWords.size() && mWords[at] == sentence.text && rest(at + 1);
            case Sentence::All:
                return matchAll(sentence, 0, at, rest);
            case Sentence::OneOf:
                for (const Sentence& part : sentence.parts) {
                    if (match(part, at, rest)) {
                        return true;
                    }
                }
                return false;
            case Sentence::Name:
                return matchName(sentence.text, at, rest);
            case Sentence::Anything:
                return matchAnything(at, rest);
        }
        return false;
    }

private:
    bool matchAll(const Sentence& sentence, std::size_t part, std::size_t at, const Rest& rest) {
        if (part == sentence.parts.size()) {
            return rest(at);
        }
        return match(sentence.parts[part], at,
                     [&](std::size_t next) { return matchAll(sentence, part + 1, next, rest); });
    }

    bool matchName(const std::string& list, std::size_t at, const Rest& rest) {
        if (at >= mWords.size()) {
            return false;
        }
        const std::vector<Named>& names = mLists.at(list);
        mSteps += static_cast<int>(names.size() / kNamesPerStep);
        for (const Named& named : names) {
            if (mayBeginWith(named.spoken, mWords[at]) && match(named.spoken, at, rest)) {
                mSlots[list] = named.value;
                return true;
            }
        }
        return false;
    }

    // The fewest words with which the rest matches.
    bool matchAnything(std::size_t at, const Rest& rest) {
        for (std::size_t end = at + 1; end <= mWords.size(); ++end) {
            if (rest(end)) {
                mSlots["*"] = joined(at, end);
                return true;
            }
        }
        return false;
    }

    std::string joined(std::size_t from, std::size_t to) const {
        std::string text;
        for (std::size_t i = from; i < to; ++i) {
            text += (text.empty() ? "" : " ") + mWords[i];
        }
        return text;
    }

    const NameLists& mLists;
    const std::vector<std::string>& mWords;
    SlotValues& mSlots;
    int mSteps = 0;
};

}  // namespace

bool matches(const Sentence& sentence, const NameLists& lists, const std::vector<std::string>& words,
             SlotValues& slots) {
    slots.clear();
    Matcher matcher(lists, words, slots);
    return matcher.match(sentence, 0, [&](std::size_t at) { return at == words.size(); });
}

}  // namespace voice
