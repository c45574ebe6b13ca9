// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace localdb {

class Record {
public:
    using Field = std::pair<std::string, std::string>;

    // Inserts the field or replaces its text.
    void set(const std::string& key, const std::string& text);
    // In the order of insertion; each key once.
    const std::vector<Field>& fields() const { return mFields; }

private:
    std::vector<Field> mFields;
};

}  // namespace localdb
