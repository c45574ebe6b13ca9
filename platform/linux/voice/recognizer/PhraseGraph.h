// SPDX-License-Identifier: Apache-2.0
// All phrases of some sentences as the smallest graph: phrases share their beginnings and their ends. A list of two
// thousand times needs some dozen states.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "voice/Sentence.h"

namespace voice {

// Without loops. A label is a word, "<list>", or "*" for free words, and labels of the arcs from one state differ.
struct PhraseGraph {
    struct State {
        bool isFinal = false;
        std::vector<std::pair<std::string, int>> arcs;  // label and target, sorted by label
    };
    std::vector<State> states;
    int start = 0;
};

class PhraseGraphBuilder {
public:
    void add(const Sentence& sentence) { add(sentence, kStart, kEnd); }
    PhraseGraph build() const;

private:
    static constexpr int kStart = 0;
    static constexpr int kEnd = 1;
    using States = std::vector<int>;  // sorted

    void add(const Sentence& sentence, int from, int to);
    void addAll(const std::vector<Sentence>& parts, int from, int to);
    States closure(States states) const;
    PhraseGraph deterministic() const;

    // Arcs by label; an arc without a label has no word.
    std::vector<std::map<std::string, States>> mArcs{2};
};

}  // namespace voice
