// SPDX-License-Identifier: Apache-2.0
// What the sound server's clients capture, as a desktop's microphone indicator sees it.
#pragma once

#include <stdio.h>

#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace captured {

// The rows of `pactl list short WHAT`, in columns.
inline std::vector<std::vector<std::string>> list(const std::string& what) {
    FILE* pactl = popen(("pactl list short " + what).c_str(), "r");
    std::vector<std::vector<std::string>> rows;
    for (char line[512]; pactl && fgets(line, sizeof line, pactl);) {
        std::istringstream words(line);
        rows.emplace_back();
        for (std::string word; words >> word;) {
            rows.back().push_back(word);
        }
    }
    if (!pactl || pclose(pactl) != 0) {
        throw std::runtime_error("pactl fails");
    }
    return rows;
}

struct Stream {
    std::string number;
    std::string source;
};

// The server's own streams between devices have no client.
inline std::vector<Stream> streams() {
    std::map<std::string, std::string> sources;
    for (const auto& row : list("sources")) {
        sources[row.at(0)] = row.at(1);
    }
    std::vector<Stream> all;
    for (const auto& row : list("source-outputs")) {
        if (row.at(2) != "-") {
            all.push_back({row.at(0), sources[row.at(1)]});
        }
    }
    return all;
}

}  // namespace captured
