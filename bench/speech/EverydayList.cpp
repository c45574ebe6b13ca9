// SPDX-License-Identifier: Apache-2.0
#include "speech/EverydayList.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <tuple>

namespace bench {

namespace {

std::string trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Splits at the first mark; the second part is empty without one.
std::pair<std::string, std::string> splitOnce(const std::string& text, const std::string& mark) {
    const std::size_t at = text.find(mark);
    return at == std::string::npos ? std::pair{trim(text), std::string()}
                                   : std::pair{trim(text.substr(0, at)), trim(text.substr(at + mark.size()))};
}

voice::Fields readFields(const std::string& text) {
    voice::Fields fields;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, ',');) {
        fields.push_back(splitOnce(part, "="));
        if (fields.back().first.empty() || fields.back().second.empty()) {
            throw std::runtime_error("expected: field = value");
        }
    }
    return fields;
}

// Reads "[agent / action name]" or "[nothing]".
void readHeader(const std::string& line, Everyday& section) {
    const std::string header = line.substr(1, line.size() - 2);
    std::tie(section.agent, section.actionName) = splitOnce(header == "nothing" ? "" : header, " / ");
    if (line.back() != ']' || section.agent.empty() != section.actionName.empty()) {
        throw std::runtime_error("expected: [agent / action name]");
    }
}

}  // namespace

std::vector<Everyday> readEveryday(const std::string& path) {
    std::ifstream in(path);
    if (!in) {
        throw std::runtime_error("cannot read " + path);
    }
    std::vector<Everyday> all;
    Everyday section;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        if (line[0] == '[') {
            readHeader(line, section);
            continue;
        }
        const auto [sentence, fields] = splitOnce(line, "|");
        all.push_back({sentence, section.agent, section.actionName, readFields(fields)});
    }
    return all;
}

}  // namespace bench
