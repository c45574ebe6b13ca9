// SPDX-License-Identifier: Apache-2.0
#include "voice/Sentence.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace voice {

namespace {

// Limits the depth of the recursion.
constexpr int kMaxDepth = 20;
// Limits the number of paths through the grammar.
constexpr int kMaxOptional = 20;

// Whether the sentence matches an empty list of words. A name always has a word.
bool fitsNothing(const Sentence& sentence) {
    const auto& parts = sentence.parts;
    return (sentence.kind == Sentence::All && std::all_of(parts.begin(), parts.end(), fitsNothing)) ||
           (sentence.kind == Sentence::OneOf && std::any_of(parts.begin(), parts.end(), fitsNothing));
}

// The largest number of "*" on one way through the sentence.
int freeParts(const Sentence& sentence) {
    int most = sentence.kind == Sentence::Anything ? 1 : 0;
    for (const Sentence& part : sentence.parts) {
        most = sentence.kind == Sentence::All ? most + freeParts(part) : std::max(most, freeParts(part));
    }
    return most;
}

class Parser {
public:
    explicit Parser(const std::string& text) : mText(text) {}

    Sentence parse() {
        Sentence sentence = choice(0);
        if (mAt != mText.size()) {
            fail("unexpected \"" + std::string(1, mText[mAt]) + "\"");
        }
        if (fitsNothing(sentence)) {
            fail("every word is optional");
        }
        if (freeParts(sentence) > 1) {
            fail("more than one \"*\"");
        }
        return sentence;
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

    Sentence choice(int depth) {
        if (depth > kMaxDepth) {
            fail("brackets are nested too deeply");
        }
        Sentence first = sequence(depth);
        if (!isAt('|')) {
            return first;
        }
        Sentence all{Sentence::OneOf, "", {std::move(first)}};
        while (isAt('|')) {
            ++mAt;
            all.parts.push_back(sequence(depth));
        }
        return all;
    }

    Sentence sequence(int depth) {
        Sentence all{Sentence::All, "", {}};
        for (skipBlanks(); mAt < mText.size() && std::string("|)]").find(mText[mAt]) == std::string::npos;
             skipBlanks()) {
            all.parts.push_back(item(depth));
        }
        if (all.parts.empty()) {
            fail("a part has no words");
        }
        return all;
    }

    Sentence item(int depth) {
        switch (mText[mAt]) {
            case '(':
                return bracketed(')', depth);
            case '[': {
                if (++mOptional > kMaxOptional) {
                    fail("too many optional parts");
                }
                Sentence inner = bracketed(']', depth);
                return {Sentence::OneOf, "", {std::move(inner), Sentence{}}};
            }
            case '<':
                return name();
            case '*':
                ++mAt;
                return {Sentence::Anything, "*", {}};
            default:
                return word();
        }
    }

    Sentence bracketed(char close, int depth) {
        ++mAt;
        Sentence inner = choice(depth + 1);
        expect(close);
        return inner;
    }

    Sentence name() {
        const std::size_t end = mText.find('>', mAt);
        if (end == std::string::npos || end == mAt + 1) {
            fail("\"<\" without a list's name and \">\"");
        }
        Sentence sentence{Sentence::Name, mText.substr(mAt + 1, end - mAt - 1), {}};
        mAt = end + 1;
        return sentence;
    }

    Sentence word() {
        Sentence sentence{Sentence::Word, "", {}};
        for (; mAt < mText.size() && (std::isalpha(static_cast<unsigned char>(mText[mAt])) || mText[mAt] == '\'');
             ++mAt) {
            sentence.text += static_cast<char>(std::tolower(static_cast<unsigned char>(mText[mAt])));
        }
        if (sentence.text.empty()) {
            fail("unexpected \"" + std::string(1, mText[mAt]) + "\"");
        }
        return sentence;
    }

    const std::string& mText;
    std::size_t mAt = 0;
    int mOptional = 0;
};

}  // namespace

Sentence parseSentence(const std::string& text) {
    return Parser(text).parse();
}

}  // namespace voice
