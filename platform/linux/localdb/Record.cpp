// SPDX-License-Identifier: Apache-2.0
#include "Record.h"

#include <algorithm>

namespace localdb {

void Record::set(const std::string& key, const std::string& text) {
    const auto hasKey = [&](const Field& field) { return field.first == key; };
    const auto found = std::find_if(mFields.begin(), mFields.end(), hasKey);
    if (found != mFields.end()) {
        found->second = text;
    } else {
        mFields.emplace_back(key, text);
    }
}

}  // namespace localdb
