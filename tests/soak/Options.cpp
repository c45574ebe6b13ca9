// SPDX-License-Identifier: Apache-2.0
#include "Options.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace soak {

namespace {

constexpr char kHelp[] =
    "usage: orvane-soak [--requests N] [--seed N] [--json FILE]\n"
    "Makes requests to the service on a simulated appliance, with cancels, faults, and changes at random moments.\n";

// Ends the program when `word` is not a number, or less than `least`.
int number(const char* word, int least) {
    int value = 0;
    const char* end = word + strlen(word);
    const auto result = std::from_chars(word, end, value);
    if (result.ec != std::errc() || result.ptr != end || value < least) {
        fprintf(stderr, "soak: %s is not a number of at least %d\n", word, least);
        exit(2);
    }
    return value;
}

}  // namespace

Options readOptions(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--help") {
            fputs(kHelp, stdout);
            exit(0);
        } else if (word == "--requests" && i + 1 < count) {
            options.requests = number(words[++i], 1);
        } else if (word == "--seed" && i + 1 < count) {
            options.seed = static_cast<unsigned>(number(words[++i], 0));
        } else if (word == "--json" && i + 1 < count) {
            options.json = words[++i];
        } else {
            fprintf(stderr, "soak: unknown or incomplete option %s; see --help\n", word.c_str());
            exit(2);
        }
    }
    return options;
}

}  // namespace soak
