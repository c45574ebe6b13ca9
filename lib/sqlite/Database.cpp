// SPDX-License-Identifier: Apache-2.0
#include "sqlite/Database.h"

#include <sqlite3.h>

#include <new>

namespace sqlite {

namespace {

int flagsOf(Access access) {
    switch (access) {
        case Access::READ:
            return SQLITE_OPEN_READONLY;
        case Access::WRITE:
            return SQLITE_OPEN_READWRITE;
        case Access::CREATE:
            return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        default:
            return SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    }
}

std::string immutableUri(const std::string& file) {
    std::string uri = "file:";
    for (const char letter : file) {
        uri += letter == '%' ? "%25" : letter == '?' ? "%3f" : letter == '#' ? "%23" : std::string(1, letter);
    }
    return uri + "?immutable=1";
}

}  // namespace

// An extended error code has the primary code in its low byte.
bool Error::isBusy() const {
    return (mCode & 0xff) == SQLITE_BUSY;
}

bool Error::isAccessRefused() const {
    return (mCode & 0xff) == SQLITE_READONLY || (mCode & 0xff) == SQLITE_CANTOPEN;
}

Database::Database(const std::string& file, Access access, int busyMilliseconds) {
    const std::string name = access == Access::READ_ALONE ? immutableUri(file) : file;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &opened, flagsOf(access), nullptr);
    mDatabase.reset(opened);  // set even after a failure, because it holds the error message
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

bool Database::isReadOnly() const {
    return sqlite3_db_readonly(get(), "main") == 1;
}

void Database::fail(int code) const {
    if (code == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    throw Error(code, mDatabase ? sqlite3_errmsg(get()) : sqlite3_errstr(code));
}

void Database::Close::operator()(sqlite3* database) const noexcept {
    sqlite3_close_v2(database);
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char letter : name) {
        text.append(letter == '"' ? 2 : 1, letter);
    }
    return text + '"';
}

}  // namespace sqlite
