// SPDX-License-Identifier: Apache-2.0
// bench_understanding SENTENCES EVERYDAY [--intents] [--json FILE]
//
// Reads the everyday sentences as text with a sentence file, and prints how many it understands. --intents adds a row
// for each intent.
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "speech/Score.h"
#include "voice/Understanding.h"

namespace {

bench::Scores scoreAll(const voice::SentenceFile& commands, const std::vector<bench::Everyday>& everyday) {
    bench::Scores scores;
    for (const bench::Everyday& expected : everyday) {
        voice::Dialogue dialogue;
        const auto intent = voice::understand(expected.sentence, commands, dialogue);
        scores[bench::intentName(expected)].add(bench::judge(expected, intent ? &*intent : nullptr));
    }
    return scores;
}

void writeJson(const bench::Scores& scores, const std::string& path) {
    std::ofstream out(path);
    out << bench::toJson(scores).dump(2) << "\n";
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

// Handles the options after the two files.
void report(const bench::Scores& scores, const std::vector<std::string>& options) {
    bool everyIntent = false;
    for (std::size_t i = 0; i < options.size(); ++i) {
        if (options[i] == "--intents") {
            everyIntent = true;
        } else if (options[i] == "--json" && i + 1 < options.size()) {
            writeJson(scores, options[++i]);
        } else {
            throw std::runtime_error("unknown option " + options[i]);
        }
    }
    bench::printTable(scores, everyIntent);
}

}  // namespace

int main(int count, char** words) {
    voice::SentenceFile commands;
    if (count < 3 || !voice::readSentenceFile(words[1], commands)) {
        std::cerr << "usage: bench_understanding SENTENCES EVERYDAY [--intents] [--json FILE]\n";
        return 2;
    }
    try {
        report(scoreAll(commands, bench::readEveryday(words[2])), {words + 3, words + count});
    } catch (const std::exception& fault) {
        std::cerr << "bench_understanding: " << fault.what() << "\n";
        return 1;
    }
    return 0;
}
