// SPDX-License-Identifier: Apache-2.0
#include "lib/Database.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace sim {

namespace {

constexpr int kPatienceMs = 5000;

std::string fileOf(const std::string& name) {
    const char* data = getenv("XDG_DATA_HOME");
    if (data == nullptr) {
        throw std::runtime_error("XDG_DATA_HOME is not set");
    }
    const auto folder = std::filesystem::path(data) / "orvane-da" / "db";
    std::filesystem::create_directories(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    return folder / (name + ".db");
}

std::string textAt(sqlite3_stmt* row, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(row, column));
}

}  // namespace

Database::Database(const std::string& name) {
    sqlite3* file = nullptr;
    const int result = sqlite3_open(fileOf(name).c_str(), &file);
    mFile.reset(file);
    if (result != SQLITE_OK) {
        fail("cannot open the database " + name);
    }
    sqlite3_busy_timeout(file, kPatienceMs);
    run("PRAGMA journal_mode=WAL");
}

std::vector<Database::Fields> Database::read(const std::string& table) {
    std::vector<Fields> records;
    const auto there = prepare("SELECT 1 FROM sqlite_master WHERE name = ?");
    sqlite3_bind_text(there.get(), 1, table.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(there.get()) != SQLITE_ROW) {
        return records;
    }
    const auto rows = prepare("SELECT position, field, value FROM \"" + table + "\" ORDER BY record, position");
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(rows.get())) == SQLITE_ROW) {
        if (sqlite3_column_int(rows.get(), 0) == 0) {
            records.emplace_back();
        }
        records.back().emplace_back(textAt(rows.get(), 1), textAt(rows.get(), 2));
    }
    if (result != SQLITE_DONE) {
        fail("cannot read the table " + table);
    }
    return records;
}

void Database::replace(const std::string& table, const std::vector<Fields>& records) {
    run("BEGIN IMMEDIATE");
    run("CREATE TABLE IF NOT EXISTS \"" + table +
        "\" (record INTEGER NOT NULL, position INTEGER NOT NULL, field TEXT NOT NULL, kind INTEGER NOT NULL DEFAULT 1,"
        " value TEXT NOT NULL, PRIMARY KEY (record, position)) WITHOUT ROWID");
    run("DELETE FROM \"" + table + "\"");
    for (std::size_t record = 0; record < records.size(); ++record) {
        for (std::size_t position = 0; position < records[record].size(); ++position) {
            const auto& [field, value] = records[record][position];
            const auto row =
                prepare("INSERT INTO \"" + table + "\" (record, position, field, value) VALUES (?, ?, ?, ?)");
            sqlite3_bind_int64(row.get(), 1, static_cast<sqlite3_int64>(record));
            sqlite3_bind_int64(row.get(), 2, static_cast<sqlite3_int64>(position));
            sqlite3_bind_text(row.get(), 3, field.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(row.get(), 4, value.c_str(), -1, SQLITE_TRANSIENT);
            if (sqlite3_step(row.get()) != SQLITE_DONE) {
                fail("cannot write the table " + table);
            }
        }
    }
    run("COMMIT");
}

void Database::run(const std::string& words) {
    if (sqlite3_exec(mFile.get(), words.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail(words);
    }
}

Database::Statement Database::prepare(const std::string& words) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mFile.get(), words.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        fail(words);
    }
    return Statement(statement);
}

void Database::fail(const std::string& what) {
    throw std::runtime_error(what + ": " + sqlite3_errmsg(mFile.get()));
}

}  // namespace sim
