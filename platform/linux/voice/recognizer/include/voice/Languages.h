// SPDX-License-Identifier: Apache-2.0
// The languages that can be recognised: those of voice/data/languages.json whose models are installed.
#pragma once

#include <string>
#include <vector>

namespace voice {

struct Language {
    std::string id;             // "en_US"
    std::string acousticModel;  // absolute folder
    std::string dictionary;     // absolute file
    std::string languageModel;  // absolute file, for the free end of a search; may be missing
    std::string commands;       // absolute file of sentences; empty: the one that the manager is given
};

// A table that is missing or broken is logged and gives no language.
std::vector<Language> installedLanguages(const std::string& tablePath);

}  // namespace voice
