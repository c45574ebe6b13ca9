// SPDX-License-Identifier: Apache-2.0
// A named local database of the appliance, as docs/local-database.md describes its file.
#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace sim {

class Database {
public:
    using Fields = std::vector<std::pair<std::string, std::string>>;

    // Opens or makes it. Throws std::runtime_error, as all of these do.
    explicit Database(const std::string& name);

    // All records in their order; none when there is no such table.
    std::vector<Fields> read(const std::string& table);
    // In one transaction.
    void replace(const std::string& table, const std::vector<Fields>& records);

private:
    struct Close {
        void operator()(sqlite3* file) const noexcept { sqlite3_close(file); }
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Close>;

    void run(const std::string& words);
    Statement prepare(const std::string& words);
    [[noreturn]] void fail(const std::string& what);

    std::unique_ptr<sqlite3, Close> mFile;
};

}  // namespace sim
