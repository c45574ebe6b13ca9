// SPDX-License-Identifier: Apache-2.0
#include "voice/Sentence.h"

#include <functional>

namespace voice {

namespace {

// Limits the time of the search.
constexpr int kMaxSteps = 100000;

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
        for (const Named& named : mLists.at(list)) {
            if (match(named.spoken, at, rest)) {
                mSlots[list] = named.value;
                return true;
            }
        }
        return false;
    }

    bool matchAnything(std::size_t at, const Rest& rest) {
        if (at >= mWords.size() || !rest(mWords.size())) {
            return false;
        }
        std::string& said = mSlots["*"];
        said.clear();
        for (; at < mWords.size(); ++at) {
            said += (said.empty() ? "" : " ") + mWords[at];
        }
        return true;
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
