// SPDX-License-Identifier: Apache-2.0
// The voice settings: which language is spoken. Main loop only.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "voice/Languages.h"

namespace voice {

class Settings {
public:
    static Settings& get();

    // Reads the table of languages anew.
    void refresh();
    const std::vector<Language>& languages() const { return mLanguages; }
    // Empty id when none is installed.
    Language current() const;
    // False when there are no models for it.
    bool select(const std::string& id);
    // One observer: told of every change that select() makes.
    void observe(std::function<void(const std::string& before, const std::string& now)> changed);

private:
    std::vector<Language> mLanguages;
    std::string mCurrent = "en_US";
    std::function<void(const std::string&, const std::string&)> mChanged;
};

}  // namespace voice
