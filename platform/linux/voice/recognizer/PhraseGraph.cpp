// SPDX-License-Identifier: Apache-2.0
#include "PhraseGraph.h"

#include <algorithm>

namespace voice {

namespace {

std::string labelOf(const Sentence& sentence) {
    return sentence.kind == Sentence::Name ? "<" + sentence.text + ">" : sentence.text;
}

// Merges states with the same phrases to the end, from the end backward.
class Minimizer {
public:
    explicit Minimizer(const PhraseGraph& graph) : mGraph(graph), mMerged(graph.states.size(), -1) {
        mResult.start = merge(graph.start);
    }
    PhraseGraph take() { return std::move(mResult); }

private:
    int merge(int state) {
        if (mMerged[state] >= 0) {
            return mMerged[state];
        }
        PhraseGraph::State merged = mGraph.states[state];
        for (auto& [label, target] : merged.arcs) {
            target = merge(target);
        }
        const auto [known, isNew] = mKnown.try_emplace({merged.isFinal, merged.arcs}, mResult.states.size());
        if (isNew) {
            mResult.states.push_back(std::move(merged));
        }
        return mMerged[state] = known->second;
    }

    const PhraseGraph& mGraph;
    std::vector<int> mMerged;
    std::map<std::pair<bool, std::vector<std::pair<std::string, int>>>, int> mKnown;
    PhraseGraph mResult;
};

}  // namespace

void PhraseGraphBuilder::add(const Sentence& sentence, int from, int to) {
    if (sentence.kind == Sentence::All) {
        addAll(sentence.parts, from, to);
    } else if (sentence.kind == Sentence::OneOf) {
        for (const Sentence& part : sentence.parts) {
            add(part, from, to);
        }
    } else {
        mArcs[from][labelOf(sentence)].push_back(to);
    }
}

void PhraseGraphBuilder::addAll(const std::vector<Sentence>& parts, int from, int to) {
    if (parts.empty()) {
        mArcs[from][""].push_back(to);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        const int next = isLast ? to : static_cast<int>(mArcs.size());
        if (!isLast) {
            mArcs.emplace_back();
        }
        add(parts[i], from, next);
        from = next;
    }
}

PhraseGraph PhraseGraphBuilder::build() const {
    return Minimizer(deterministic()).take();
}

// Adds the states that are reachable without a word.
PhraseGraphBuilder::States PhraseGraphBuilder::closure(States states) const {
    for (std::size_t i = 0; i < states.size(); ++i) {
        const auto silent = mArcs[states[i]].find("");
        if (silent != mArcs[states[i]].end()) {
            states.insert(states.end(), silent->second.begin(), silent->second.end());
        }
    }
    std::sort(states.begin(), states.end());
    states.erase(std::unique(states.begin(), states.end()), states.end());
    return states;
}

// Each state of the result stands for the states that the same words can lead to.
PhraseGraph PhraseGraphBuilder::deterministic() const {
    PhraseGraph graph;
    std::map<States, int> known;
    std::vector<States> members;
    const auto stateOf = [&](const States& states) {
        const auto [found, isNew] = known.try_emplace(closure(states), members.size());
        if (isNew) {
            members.push_back(found->first);
            graph.states.emplace_back();
        }
        return found->second;
    };
    stateOf({kStart});
    for (std::size_t i = 0; i < members.size(); ++i) {
        std::map<std::string, States> targets;
        for (const int member : States(members[i])) {
            graph.states[i].isFinal = graph.states[i].isFinal || member == kEnd;
            for (const auto& [label, to] : mArcs[member]) {
                targets[label].insert(targets[label].end(), to.begin(), to.end());
            }
        }
        targets.erase("");
        for (const auto& [label, to] : targets) {
            const int target = stateOf(to);
            graph.states[i].arcs.emplace_back(label, target);
        }
    }
    return graph;
}

}  // namespace voice
