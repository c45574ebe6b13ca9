// SPDX-License-Identifier: Apache-2.0
#include "appliance/run/Options.h"

#include <cstdio>
#include <cstdlib>

namespace sim {

namespace {

constexpr char kHelp[] =
    "usage: script/run [--say TEXT | --wav FILE | --mic] [--voice NAME]\n"
    "Starts a simulated appliance with the assistant and prints what happens.\n"
    "  (no option)   a short conversation: open, home screen, close, a recipe, a web search\n"
    "  --say TEXT    says the wake word, then TEXT\n"
    "  --wav FILE    says the wake word, then plays the sound file FILE\n"
    "  --mic         uses your microphone until Ctrl-C: say \"hey quorbit\", then a command\n"
    "  --voice NAME  the voice that speaks: slt (default), awb, rms, kal16\n"
    "  --help        prints this text\n"
    "Ctrl-C ends the appliance and everything that it started.\n";

[[noreturn]] void printHelp() {
    fputs(kHelp, stdout);
    exit(0);
}

[[noreturn]] void refuse(const std::string& word) {
    fprintf(stderr, "run: unknown or incomplete option %s; see --help\n", word.c_str());
    exit(2);
}

}  // namespace

Options readOptions(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const bool hasValue = i + 1 < count;
        if (word == "--help") {
            printHelp();
        } else if (word == "--mic") {
            options.microphone = true;
        } else if (word == "--say" && hasValue) {
            options.say = words[++i];
        } else if (word == "--wav" && hasValue) {
            options.wav = words[++i];
        } else if (word == "--voice" && hasValue) {
            options.voice = words[++i];
        } else {
            refuse(word);
        }
    }
    return options;
}

}  // namespace sim
