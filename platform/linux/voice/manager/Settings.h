// SPDX-License-Identifier: Apache-2.0
// The language of the voice control. One in each process; main loop only.
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
    // With an empty id if none is installed.
    Language current() const;
    // False if there are no models for it.
    bool select(const std::string& id);
    // Sets the one function that select() calls after each change; null removes it.
    void observe(std::function<void(const std::string& before, const std::string& now)> changed);

private:
    std::vector<Language> mLanguages;
    std::string mCurrent = "en_US";
    std::function<void(const std::string&, const std::string&)> mChanged;
};

}  // namespace voice
