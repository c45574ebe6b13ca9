// SPDX-License-Identifier: Apache-2.0
#include "sqlite/Statement.h"

#include <sqlite3.h>

#include <new>

namespace sqlite {

Statement::Statement(const Database& database, const std::string& sql) : mDatabase(database) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &statement, nullptr));
    mStatement.reset(statement);
}

Statement& Statement::bind(int parameter, const std::string& text) {
    check(sqlite3_bind_text64(mStatement.get(), parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bind(int parameter, int number) {
    check(sqlite3_bind_int(mStatement.get(), parameter, number));
    return *this;
}

bool Statement::step() {
    const int code = sqlite3_step(mStatement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        mDatabase.fail(code);
    }
    return code == SQLITE_ROW;
}

void Statement::run() {
    while (step()) {
    }
    check(sqlite3_reset(mStatement.get()));
}

const char* Statement::text(int column) const {
    const unsigned char* text = sqlite3_column_text(mStatement.get(), column);
    if (text != nullptr) {
        return reinterpret_cast<const char*>(text);
    }
    if (sqlite3_errcode(mDatabase.get()) == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    return "";
}

int Statement::number(int column) const {
    return sqlite3_column_int(mStatement.get(), column);
}

void Statement::check(int code) const {
    if (code != SQLITE_OK) {
        mDatabase.fail(code);
    }
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

}  // namespace sqlite
