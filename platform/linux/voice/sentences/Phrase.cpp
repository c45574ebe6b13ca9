// SPDX-License-Identifier: Apache-2.0
#include "voice/Phrase.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace voice {

namespace {

// More than any person writes would only exhaust the stack,
constexpr int kMaxDepth = 20;
// the grammar's ways past what is left out,
constexpr int kMaxOptional = 20;
// or the time for finding out which way was taken.
constexpr int kMaxSteps = 100000;

// Names are never silent themselves.
bool maybeSilent(const Phrase& phrase) {
    const auto& parts = phrase.parts;
    return (phrase.kind == Phrase::All && std::all_of(parts.begin(), parts.end(), maybeSilent)) ||
           (phrase.kind == Phrase::OneOf && std::any_of(parts.begin(), parts.end(), maybeSilent));
}

class Parser {
public:
    explicit Parser(const std::string& text) : mText(text) {}

    Phrase parse() {
        Phrase phrase = choice(0);
        if (mAt != mText.size()) {
            fail("unexpected \"" + std::string(1, mText[mAt]) + "\"");
        }
        if (maybeSilent(phrase)) {
            fail("all of it may be left out");
        }
        return phrase;
    }

private:
    [[noreturn]] static void fail(const std::string& what) { throw std::invalid_argument(what); }

    void skipBlanks() {
        while (mAt < mText.size() && std::isspace(static_cast<unsigned char>(mText[mAt]))) {
            ++mAt;
        }
    }
    bool isAt(char wanted) {
        skipBlanks();
        return mAt < mText.size() && mText[mAt] == wanted;
    }
    void expect(char wanted) {
        if (!isAt(wanted)) {
            fail("missing \"" + std::string(1, wanted) + "\"");
        }
        ++mAt;
    }

    Phrase choice(int depth) {
        if (depth > kMaxDepth) {
            fail("too many brackets within brackets");
        }
        Phrase first = sequence(depth);
        if (!isAt('|')) {
            return first;
        }
        Phrase all{Phrase::OneOf, "", {std::move(first)}};
        while (isAt('|')) {
            ++mAt;
            all.parts.push_back(sequence(depth));
        }
        return all;
    }

    Phrase sequence(int depth) {
        Phrase all{Phrase::All, "", {}};
        for (skipBlanks(); mAt < mText.size() && std::string("|)]").find(mText[mAt]) == std::string::npos;
             skipBlanks()) {
            if (!all.parts.empty() && all.parts.back().kind == Phrase::Anything) {
                fail("\"*\" must come last");
            }
            all.parts.push_back(item(depth));
        }
        if (all.parts.empty()) {
            fail("nothing to say");
        }
        return all;
    }

    Phrase item(int depth) {
        switch (mText[mAt]) {
            case '(':
                return bracketed(')', depth);
            case '[': {
                if (++mOptional > kMaxOptional) {
                    fail("too much that may be left out");
                }
                Phrase inner = bracketed(']', depth);
                return {Phrase::OneOf, "", {std::move(inner), Phrase{}}};
            }
            case '<':
                return name();
            case '*':
                ++mAt;
                return {Phrase::Anything, "*", {}};
            default:
                return word();
        }
    }

    Phrase bracketed(char close, int depth) {
        ++mAt;
        Phrase inner = choice(depth + 1);
        expect(close);
        return inner;
    }

    Phrase name() {
        const std::size_t end = mText.find('>', mAt);
        if (end == std::string::npos || end == mAt + 1) {
            fail("\"<\" without a list's name and \">\"");
        }
        Phrase phrase{Phrase::Name, mText.substr(mAt + 1, end - mAt - 1), {}};
        mAt = end + 1;
        return phrase;
    }

    Phrase word() {
        Phrase phrase{Phrase::Word, "", {}};
        for (; mAt < mText.size() && (std::isalpha(static_cast<unsigned char>(mText[mAt])) || mText[mAt] == '\'');
             ++mAt) {
            phrase.text += static_cast<char>(std::tolower(static_cast<unsigned char>(mText[mAt])));
        }
        if (phrase.text.empty()) {
            fail("unexpected \"" + std::string(1, mText[mAt]) + "\"");
        }
        return phrase;
    }

    const std::string& mText;
    std::size_t mAt = 0;
    int mOptional = 0;
};

// Backtracking: `rest` says whether what follows fits from a position on.
class Matcher {
public:
    using Rest = std::function<bool(std::size_t)>;

    Matcher(const NameLists& lists, const std::vector<std::string>& words, Filling& filling)
        : mLists(lists), mWords(words), mFilling(filling) {}

    bool match(const Phrase& phrase, std::size_t at, const Rest& rest) {
        if (++mSteps > kMaxSteps) {
            return false;
        }
        switch (phrase.kind) {
            case Phrase::Word:
                return at < mWords.size() && mWords[at] == phrase.text && rest(at + 1);
            case Phrase::All:
                return matchAll(phrase, 0, at, rest);
            case Phrase::OneOf:
                for (const Phrase& part : phrase.parts) {
                    if (match(part, at, rest)) {
                        return true;
                    }
                }
                return false;
            case Phrase::Name:
                return matchName(phrase.text, at, rest);
            case Phrase::Anything:
                return matchAnything(at, rest);
        }
        return false;
    }

private:
    bool matchAll(const Phrase& phrase, std::size_t part, std::size_t at, const Rest& rest) {
        if (part == phrase.parts.size()) {
            return rest(at);
        }
        return match(phrase.parts[part], at, [&](std::size_t next) { return matchAll(phrase, part + 1, next, rest); });
    }

    bool matchName(const std::string& list, std::size_t at, const Rest& rest) {
        for (const Named& named : mLists.at(list)) {
            if (match(named.phrase, at, rest)) {
                mFilling[list] = named.value;
                return true;
            }
        }
        return false;
    }

    bool matchAnything(std::size_t at, const Rest& rest) {
        if (at >= mWords.size() || !rest(mWords.size())) {
            return false;
        }
        std::string& said = mFilling["*"];
        said.clear();
        for (; at < mWords.size(); ++at) {
            said += (said.empty() ? "" : " ") + mWords[at];
        }
        return true;
    }

    const NameLists& mLists;
    const std::vector<std::string>& mWords;
    Filling& mFilling;
    int mSteps = 0;
};

}  // namespace

Phrase parsePhrase(const std::string& text) {
    return Parser(text).parse();
}

void collectWords(const Phrase& phrase, const NameLists& lists, std::set<std::string>& words) {
    if (phrase.kind == Phrase::Word) {
        words.insert(phrase.text);
    }
    if (phrase.kind == Phrase::Name) {
        for (const Named& named : lists.at(phrase.text)) {
            collectWords(named.phrase, lists, words);
        }
    }
    for (const Phrase& part : phrase.parts) {
        collectWords(part, lists, words);
    }
}

void collectLists(const Phrase& phrase, std::set<std::string>& lists) {
    if (phrase.kind == Phrase::Name) {
        lists.insert(phrase.text);
    }
    for (const Phrase& part : phrase.parts) {
        collectLists(part, lists);
    }
}

bool matches(const Phrase& phrase, const NameLists& lists, const std::vector<std::string>& words, Filling& filling) {
    filling.clear();
    Matcher matcher(lists, words, filling);
    return matcher.match(phrase, 0, [&](std::size_t at) { return at == words.size(); });
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
