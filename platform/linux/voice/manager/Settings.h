// SPDX-License-Identifier: Apache-2.0
// The language of voice control. One instance per process; main loop only.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "voice/Languages.h"

namespace voice {

class Settings {
public:
    // Reads the table of languages again.
    void refresh();
    const std::vector<Language>& languages() const { return mLanguages; }
    // Has an empty id if no language is installed.
    Language current() const;
    // False if the language's models are not installed.
    bool select(const std::string& id);
    // Sets the function that select() calls after each change; null removes it.
    void observe(std::function<void(const std::string& before, const std::string& now)> changed);

private:
    std::vector<Language> mLanguages;
    std::string mCurrent = "en_US";
    std::function<void(const std::string&, const std::string&)> mChanged;
};

}  // namespace voice
