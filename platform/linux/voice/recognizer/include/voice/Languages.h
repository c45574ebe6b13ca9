// SPDX-License-Identifier: Apache-2.0
// The languages of voice/data/languages.json whose models are installed.
#pragma once

#include <string>
#include <vector>

namespace voice {

struct Language {
    std::string id;             // "en_US"
    std::string acousticModel;  // absolute folder
    std::string dictionary;     // absolute file
    std::string languageModel;  // absolute file, for the free end of a search; may be missing
    std::string commands;       // absolute file of sentences; empty: the manager's
};

// Empty if the table is missing or broken; a line in the log says why.
std::vector<Language> installedLanguages(const std::string& tablePath);

}  // namespace voice
