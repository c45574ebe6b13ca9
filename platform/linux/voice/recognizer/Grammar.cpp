// SPDX-License-Identifier: Apache-2.0
#include "Grammar.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "dlog.h"

namespace voice {

namespace {

// What a phone of the free end and of the strange loop costs, as a probability. Too dear and anything is taken for a
// command; too cheap and a command said unclearly is taken for nothing.
constexpr double kFreeProbability = 1e-4;
constexpr double kStrangeProbability = 2e-4;

std::set<std::string> wordsOf(const CommandFile& commands) {
    std::set<std::string> words;
    for (const Command& command : commands.commands) {
        for (const Phrase& sentence : command.sentences) {
            collectWords(sentence, commands.lists, words);
        }
    }
    return words;
}

// An arc of the grammar before its states are counted.
struct Arc {
    int from;
    int to;
    std::string word;  // empty: silent
    double probability;
};

class Builder {
public:
    explicit Builder(const CommandFile& commands) : mCommands(commands) {
        loop(kStart, kEnd, kStrangePhone, kStrangeProbability);
        for (const Command& command : commands.commands) {
            for (const Phrase& sentence : command.sentences) {
                add(sentence, kStart, kEnd);
            }
        }
    }

    sphinx::Fsg build(const sphinx::Decoder& decoder) const {
        sphinx::Fsg grammar(decoder, mStates, kStart, kEnd);
        for (const Arc& arc : mArcs) {
            if (arc.word.empty()) {
                grammar.addSilent(arc.from, arc.to, arc.probability);
            } else {
                grammar.addWord(arc.from, arc.to, arc.word, arc.probability);
            }
        }
        grammar.close();
        return grammar;
    }

private:
    static constexpr int kStart = 0;
    static constexpr int kEnd = 1;

    void add(const Phrase& phrase, int from, int to) {
        switch (phrase.kind) {
            case Phrase::Word:
                mArcs.push_back({from, to, phrase.text, 1});
                return;
            case Phrase::All:
                return addAll(phrase.parts, from, to);
            case Phrase::OneOf:
                for (const Phrase& part : phrase.parts) {
                    add(part, from, to);
                }
                return;
            case Phrase::Name:
                for (const Named& named : mCommands.lists.at(phrase.text)) {
                    add(named.phrase, from, to);
                }
                return;
            case Phrase::Anything:
                return loop(from, to, kFreePhone, kFreeProbability);
        }
    }

    void addAll(const std::vector<Phrase>& parts, int from, int to) {
        if (parts.empty()) {
            mArcs.push_back({from, to, "", 1});
            return;
        }
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const int next = i + 1 == parts.size() ? to : mStates++;
            add(parts[i], from, next);
            from = next;
        }
    }

    // One phone or more.
    void loop(int from, int to, char mark, double probability) {
        const int within = mStates++;
        for (const std::string& phone : sphinx::phones()) {
            mArcs.push_back({from, within, mark + phone, probability});
            mArcs.push_back({within, within, mark + phone, probability});
        }
        mArcs.push_back({within, to, "", 1});
    }

    const CommandFile& mCommands;
    std::vector<Arc> mArcs;
    int mStates = 2;
};

bool canBeSaid(const Phrase& sentence, const CommandFile& commands, const sphinx::Pronunciations& sounds) {
    std::set<std::string> words;
    collectWords(sentence, commands.lists, words);
    for (const std::string& word : words) {
        if (sounds.count(word) == 0) {
            dlog_print(DLOG_WARN, "orvane-voice", "no pronunciation of \"%s\": its sentence is left out", word.c_str());
            return false;
        }
    }
    return true;
}

// A name with an unknown word goes alone; it must not take every sentence with its list along.
void dropNames(CommandFile& commands, const sphinx::Pronunciations& sounds) {
    for (auto& [list, names] : commands.lists) {
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [&](const Named& named) { return !canBeSaid(named.phrase, commands, sounds); }),
                    names.end());
    }
}

void dropSentences(CommandFile& commands, const sphinx::Pronunciations& sounds) {
    for (Command& command : commands.commands) {
        auto& sentences = command.sentences;
        sentences.erase(std::remove_if(sentences.begin(), sentences.end(),
                                       [&](const Phrase& sentence) { return !canBeSaid(sentence, commands, sounds); }),
                        sentences.end());
    }
}

}  // namespace

sphinx::Pronunciations soundsOf(CommandFile& commands, const std::string& dictionary) {
    sphinx::Pronunciations sounds;
    if (!sphinx::readPronunciations(dictionary, wordsOf(commands), sounds)) {
        throw std::runtime_error("no dictionary at " + dictionary);
    }
    for (const auto& [word, variants] : commands.sounds) {
        sounds[word] = variants;
    }
    dropNames(commands, sounds);
    dropSentences(commands, sounds);
    for (const std::string& phone : sphinx::phones()) {
        sounds[kFreePhone + phone] = {phone};
        sounds[kStrangePhone + phone] = {phone};
    }
    return sounds;
}

sphinx::Fsg buildGrammar(const CommandFile& commands, const sphinx::Decoder& decoder) {
    return Builder(commands).build(decoder);
}

}  // namespace voice
