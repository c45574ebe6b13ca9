// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "sqlite/Database.h"

struct sqlite3_stmt;

namespace sqlite {

// One prepared statement. Must be destroyed before its database. All functions throw sqlite::Error.
class Statement {
public:
    Statement(const Database& database, const std::string& sql);

    // Parameters count from 1.
    Statement& bind(int parameter, const std::string& text);
    Statement& bind(int parameter, int number);
    // False after the last row.
    bool step();
    // Runs a statement that returns no rows, and resets it for reuse.
    void run();

    // Columns count from 0. The text is valid until the next step; NULL reads as "".
    const char* text(int column) const;
    int number(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    void check(int code) const;

    const Database& mDatabase;
    std::unique_ptr<sqlite3_stmt, Finalize> mStatement;
};

}  // namespace sqlite
