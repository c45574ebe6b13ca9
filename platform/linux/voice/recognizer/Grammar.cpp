// SPDX-License-Identifier: Apache-2.0
#include "Grammar.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "dlog.h"

namespace voice {

namespace {

// The probability of each phone of the free end and of the filler loop. If it is too low, other speech is mistaken for
// a command; if it is too high, unclear commands are rejected.
constexpr double kFreeProbability = 1e-4;
constexpr double kFillerProbability = 2e-4;

std::set<std::string> wordsOf(const SentenceFile& commands) {
    std::set<std::string> words;
    for (const Command& command : commands.commands) {
        for (const Sentence& sentence : command.sentences) {
            collectWords(sentence, commands.lists, words);
        }
    }
    return words;
}

// An arc of the grammar. Arcs are collected first, because the number of states is not yet known.
struct Arc {
    int from;
    int to;
    std::string word;  // empty: no word
    double probability;
};

class Builder {
public:
    explicit Builder(const SentenceFile& commands) : mCommands(commands) {
        loop(kStart, kEnd, kFillerPhone, kFillerProbability);
        for (const Command& command : commands.commands) {
            for (const Sentence& sentence : command.sentences) {
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

    void add(const Sentence& sentence, int from, int to) {
        switch (sentence.kind) {
            case Sentence::Word:
                mArcs.push_back({from, to, sentence.text, 1});
                return;
            case Sentence::All:
                return addAll(sentence.parts, from, to);
            case Sentence::OneOf:
                for (const Sentence& part : sentence.parts) {
                    add(part, from, to);
                }
                return;
            case Sentence::Name:
                for (const Named& named : mCommands.lists.at(sentence.text)) {
                    add(named.spoken, from, to);
                }
                return;
            case Sentence::Anything:
                return loop(from, to, kFreePhone, kFreeProbability);
        }
    }

    void addAll(const std::vector<Sentence>& parts, int from, int to) {
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

    // Accepts one or more phones.
    void loop(int from, int to, char mark, double probability) {
        const int within = mStates++;
        for (const std::string& phone : sphinx::phones()) {
            mArcs.push_back({from, within, mark + phone, probability});
            mArcs.push_back({within, within, mark + phone, probability});
        }
        mArcs.push_back({within, to, "", 1});
    }

    const SentenceFile& mCommands;
    std::vector<Arc> mArcs;
    int mStates = 2;
};

bool canBeSaid(const Sentence& sentence, const SentenceFile& commands, const sphinx::Pronunciations& sounds) {
    std::set<std::string> words;
    collectWords(sentence, commands.lists, words);
    for (const std::string& word : words) {
        if (sounds.count(word) == 0) {
            dlog_print(DLOG_WARN, "orvane-voice", "no pronunciation of \"%s\": skipping its sentence", word.c_str());
            return false;
        }
    }
    return true;
}

// Removes only the name with the unknown word, so that the sentences with its list remain.
void dropNames(SentenceFile& commands, const sphinx::Pronunciations& sounds) {
    for (auto& [list, names] : commands.lists) {
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [&](const Named& named) { return !canBeSaid(named.spoken, commands, sounds); }),
                    names.end());
    }
}

void dropSentences(SentenceFile& commands, const sphinx::Pronunciations& sounds) {
    for (Command& command : commands.commands) {
        auto& sentences = command.sentences;
        sentences.erase(
            std::remove_if(sentences.begin(), sentences.end(),
                           [&](const Sentence& sentence) { return !canBeSaid(sentence, commands, sounds); }),
            sentences.end());
    }
}

}  // namespace

sphinx::Pronunciations soundsOf(SentenceFile& commands, const std::string& dictionary) {
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
        sounds[kFillerPhone + phone] = {phone};
    }
    return sounds;
}

sphinx::Fsg buildGrammar(const SentenceFile& commands, const sphinx::Decoder& decoder) {
    return Builder(commands).build(decoder);
}

}  // namespace voice
