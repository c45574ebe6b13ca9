// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Dictionary.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace sphinx {

bool readPronunciations(const std::string& file, const std::set<std::string>& words, Pronunciations& found) {
    std::ifstream in(file);
    std::string line;
    while (std::getline(in, line)) {
        const std::size_t blank = line.find_first_of(" \t");
        if (blank == std::string::npos) {
            continue;
        }
        const std::string word = line.substr(0, std::min(blank, line.find('(', 1)));
        const std::size_t phones = line.find_first_not_of(" \t", blank);
        if (phones != std::string::npos && words.count(word) != 0) {
            found[word].push_back(line.substr(phones));
        }
    }
    return in.eof();
}

std::string variantName(const std::string& word, std::size_t variant) {
    return variant == 0 ? word : word + "(" + std::to_string(variant + 1) + ")";
}

std::string dictionaryText(const Pronunciations& words) {
    std::string text;
    for (const auto& [word, variants] : words) {
        for (std::size_t i = 0; i < variants.size(); ++i) {
            text += variantName(word, i) + " " + variants[i] + "\n";
        }
    }
    return text;
}

const std::vector<std::string>& phones() {
    static const std::vector<std::string> all{"AA", "AE", "AH", "AO", "AW", "AY", "B",  "CH", "D",  "DH",
                                              "EH", "ER", "EY", "F",  "G",  "HH", "IH", "IY", "JH", "K",
                                              "L",  "M",  "N",  "NG", "OW", "OY", "P",  "R",  "S",  "SH",
                                              "T",  "TH", "UH", "UW", "V",  "W",  "Y",  "Z",  "ZH"};
    return all;
}

bool isPhoneSequence(const std::string& phonesText) {
    std::istringstream in(phonesText);
    std::string phone;
    bool any = false;
    while (in >> phone) {
        if (std::find(phones().begin(), phones().end(), phone) == phones().end()) {
            return false;
        }
        any = true;
    }
    return any;
}

}  // namespace sphinx
