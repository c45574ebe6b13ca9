// SPDX-License-Identifier: Apache-2.0
#include "Settings.h"

#include <algorithm>
#include <utility>

#include "tzplatform_config.h"

namespace voice {

void Settings::refresh() {
    const char* table = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, "voice/data/languages.json");
    mLanguages = installedLanguages(table ? table : "");
    const bool known = std::any_of(mLanguages.begin(), mLanguages.end(), [this](auto& l) { return l.id == mCurrent; });
    if (!known && !mLanguages.empty()) {
        mCurrent = mLanguages.front().id;
    }
}

Language Settings::current() const {
    const auto found = std::find_if(mLanguages.begin(), mLanguages.end(), [this](auto& l) { return l.id == mCurrent; });
    return found == mLanguages.end() ? Language{} : *found;
}

bool Settings::select(const std::string& id) {
    if (std::none_of(mLanguages.begin(), mLanguages.end(), [&](auto& language) { return language.id == id; })) {
        return false;
    }
    if (id != mCurrent) {
        const std::string before = std::exchange(mCurrent, id);
        if (mChanged) {
            mChanged(before, id);
        }
    }
    return true;
}

void Settings::observe(std::function<void(const std::string&, const std::string&)> changed) {
    mChanged = std::move(changed);
}

}  // namespace voice
