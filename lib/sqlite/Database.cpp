// SPDX-License-Identifier: Apache-2.0
#include "sqlite/Database.h"

#include <new>

namespace sqlite {

Database::Database(const std::string& file, int flags, int busyMilliseconds) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &opened, flags, nullptr);
    mDatabase.reset(opened);  // is there for the error's text when opening failed
    if (code != SQLITE_OK) {
        fail(code);
    }
    sqlite3_busy_timeout(opened, busyMilliseconds);
}

void Database::execute(const std::string& sql) {
    const int code = sqlite3_exec(get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        fail(code);
    }
}

void Database::fail(int code) const {
    if (code == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    throw Error(code, mDatabase ? sqlite3_errmsg(get()) : sqlite3_errstr(code));
}

// The write lock is taken at once: a transaction that becomes a writer half-way can fail without having waited.
Transaction::Transaction(Database& database) : mDatabase(database) {
    database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (mOpen) {
        sqlite3_exec(mDatabase.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    mDatabase.execute("COMMIT");
    mOpen = false;
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char letter : name) {
        text.append(letter == '"' ? 2 : 1, letter);
    }
    return text + '"';
}

}  // namespace sqlite
