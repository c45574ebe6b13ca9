// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "sqlite/Error.h"

struct sqlite3;

namespace sqlite {

enum class Access {
    READ,
    WRITE,
    CREATE,     // writes, and creates the file if it is missing
    READ_ALONE  // reads the file without its log; the file must not change while it is open
};

// One connection to a database file. One thread at a time may use it. All functions throw sqlite::Error.
class Database {
public:
    // The constructor does not read the file; the first statement does. A statement waits up to `busyMilliseconds` for
    // another connection's lock.
    Database(const std::string& file, Access access, int busyMilliseconds);

    void execute(const std::string& sql);
    // Also true if `access` requested writing but the file is read-only.
    bool isReadOnly() const;
    // Throws the error for `code`, which the last call on this connection returned.
    [[noreturn]] void fail(int code) const;
    sqlite3* get() const { return mDatabase.get(); }

private:
    struct Close {
        void operator()(sqlite3* database) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> mDatabase;
};

// "name" in quotes, for a table whose name may contain any character.
std::string quoted(const std::string& name);

}  // namespace sqlite
