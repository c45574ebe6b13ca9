// SPDX-License-Identifier: Apache-2.0
// One prepared statement. Must end before its database. All of these throw sqlite::Error.
#pragma once

#include "sqlite/Database.h"

namespace sqlite {

class Statement {
public:
    Statement(const Database& database, const std::string& sql);

    // Parameters count from 1.
    Statement& bind(int parameter, const std::string& text);
    Statement& bind(int parameter, int number);
    // False after the last row.
    bool step();
    // Runs a statement without rows and makes it ready to run again.
    void run();

    // Columns count from 0. The text is valid until the next step; a null is "".
    const char* text(int column) const;
    int number(int column) const { return sqlite3_column_int(mStatement.get(), column); }

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    void check(int code) const;

    const Database& mDatabase;
    std::unique_ptr<sqlite3_stmt, Finalize> mStatement;
};

}  // namespace sqlite
