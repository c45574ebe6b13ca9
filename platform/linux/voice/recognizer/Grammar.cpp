// SPDX-License-Identifier: Apache-2.0
#include "Grammar.h"

#include <algorithm>
#include <stdexcept>

#include "PhraseGraph.h"
#include "dlog.h"

namespace voice {

namespace {

// The probability of each phone of the free words and of the filler loop. If it is too low, other speech is mistaken
// for a command; if it is too high, unclear commands are rejected.
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

// The arcs of the decoder's grammar. The decoder cannot return from a list to the place of its use, so that each
// continuation needs a copy of the list's graph.
class Builder {
public:
    explicit Builder(const SentenceFile& commands) {
        loop(kStart, kEnd, kFillerPhone, kFillerProbability);
        for (const auto& [list, names] : commands.lists) {
            mLists["<" + list + ">"] = graphOf(names);
        }
        add(graphOf(commands.commands), kStart, kEnd);
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
    static constexpr int kAnywhere = -1;
    static constexpr std::size_t kLargeList = 20;  // states

    // A part of the grammar with several uses.
    struct Shared {
        int begin = -1;
        int end = -1;
        std::set<int> targets;
    };

    static PhraseGraph graphOf(const std::vector<Named>& names) {
        PhraseGraphBuilder graph;
        for (const Named& named : names) {
            graph.add(named.spoken);
        }
        return graph.build();
    }

    static PhraseGraph graphOf(const std::vector<Command>& commands) {
        PhraseGraphBuilder graph;
        for (const Command& command : commands) {
            for (const Sentence& sentence : command.sentences) {
                graph.add(sentence);
            }
        }
        return graph.build();
    }

    void add(const PhraseGraph& graph, int from, int to) {
        std::vector<int> numbers;
        for (const PhraseGraph::State& state : graph.states) {
            numbers.push_back(state.isFinal && state.arcs.empty() ? to : mStates++);
        }
        numbers[graph.start] = from;
        for (std::size_t i = 0; i < graph.states.size(); ++i) {
            for (const auto& [label, target] : graph.states[i].arcs) {
                addLabel(label, numbers[i], numbers[target], graph.states[target]);
            }
            if (graph.states[i].isFinal && numbers[i] != to) {
                mArcs.push_back({numbers[i], to, "", 1});
            }
        }
    }

    // after: the state of the graph behind the label.
    void addLabel(const std::string& label, int from, int to, const PhraseGraph::State& after) {
        const auto list = mLists.find(label);
        if (list != mLists.end()) {
            addList(list->second, label, from, to);
        } else if (label == "*") {
            addFreeWords(from, to, after);
        } else {
            mArcs.push_back({from, to, label, 1});
        }
    }

    // Uses of a small list that continue in the same way share a copy. All uses of a large list share one, so that the
    // decoder may continue like another sentence; such a text matches no sentence later and is rejected.
    void addList(const PhraseGraph& list, const std::string& label, int from, int to) {
        const bool isLarge = list.states.size() > kLargeList;
        const auto [found, isNew] = mCopies.try_emplace({label, isLarge ? kAnywhere : to}, Shared{mStates, to, {}});
        Shared& copy = found->second;
        if (isNew) {
            ++mStates;
            copy.end = isLarge ? mStates++ : to;
            add(list, copy.begin, copy.end);
        }
        mArcs.push_back({from, copy.begin, "", 1});
        leave(copy, to);
    }

    void leave(Shared& shared, int to) {
        if (to != shared.end && shared.targets.insert(to).second) {
            mArcs.push_back({shared.end, to, "", 1});
        }
    }

    // A loop of phones is expensive, so that there are only two: for free words that may end the sentence, and for free
    // words that other words follow. Polite words in a list after the former are part of them here.
    void addFreeWords(int from, int to, const PhraseGraph::State& after) {
        if (after.isFinal) {
            addFreeWords(mFreeEnd, from, kEnd);
        }
        const auto isWord = [](const auto& arc) { return arc.first.front() != '<'; };
        if (!after.isFinal || std::any_of(after.arcs.begin(), after.arcs.end(), isWord)) {
            addFreeWords(mFreeMiddle, from, to);
        }
    }

    void addFreeWords(Shared& shared, int from, int to) {
        if (shared.begin < 0) {
            shared.begin = mStates++;
            shared.end = mStates++;
            loop(shared.begin, shared.end, kFreePhone, kFreeProbability);
        }
        mArcs.push_back({from, shared.begin, "", 1});
        leave(shared, to);
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

    std::map<std::string, PhraseGraph> mLists;
    std::map<std::pair<std::string, int>, Shared> mCopies;  // of lists, by label and what follows
    Shared mFreeMiddle;
    Shared mFreeEnd;
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
