// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sqlite/Database.h"

namespace sim {

// A named local database of the appliance, as docs/local-database.md describes its file. All functions throw
// std::runtime_error.
class Database {
public:
    using Fields = std::vector<std::pair<std::string, std::string>>;

    // Creates the file if it is missing.
    explicit Database(const std::string& name);

    // All records in their order; empty if there is no such table.
    std::vector<Fields> read(const std::string& table);
    // Replaces all records in one transaction.
    void replace(const std::string& table, const std::vector<Fields>& records);

private:
    sqlite::Database mDatabase;
};

}  // namespace sim
