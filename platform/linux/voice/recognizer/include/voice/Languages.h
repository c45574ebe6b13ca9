// SPDX-License-Identifier: Apache-2.0
// The languages of voice/data/languages.json whose models are installed.
#pragma once

#include <string>
#include <vector>

namespace voice {

struct Language {
    std::string id;             // "en_US"
    std::string acousticModel;  // absolute path of a directory
    std::string dictionary;     // absolute path
    std::string languageModel;  // absolute path, for the free end of a search; may be missing
    std::string commands;       // absolute path of the sentence file; empty: the manager's
};

// Empty if the table is missing or invalid; the log contains the reason.
std::vector<Language> installedLanguages(const std::string& tablePath);

}  // namespace voice
