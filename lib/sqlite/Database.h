// SPDX-License-Identifier: Apache-2.0
// One connection to a SQLite database file. Used by one thread at a time.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace sqlite {

class Error : public std::runtime_error {
public:
    Error(int code, const std::string& text) : std::runtime_error(text), mCode(code) {}
    // SQLITE_..., without its extension.
    int code() const { return mCode & 0xff; }

private:
    int mCode;
};

class Database {
public:
    // `file`: a path or a file: URI. `flags`: SQLITE_OPEN_...; the file is first looked at by the first statement.
    // Waits up to `busyMilliseconds` for another process's lock. All of these throw Error.
    Database(const std::string& file, int flags, int busyMilliseconds);

    void execute(const std::string& sql);
    // Wanted so, or a file that could not be opened otherwise.
    bool isReadOnly() const { return sqlite3_db_readonly(get(), "main") == 1; }
    [[noreturn]] void fail(int code) const;
    sqlite3* get() const { return mDatabase.get(); }

private:
    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> mDatabase;
};

// A transaction that writes, rolled back at its end unless committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& mDatabase;
    bool mOpen = true;
};

// "name", whatever the name holds.
std::string quoted(const std::string& name);

}  // namespace sqlite
