// SPDX-License-Identifier: Apache-2.0
#include "shared/Database.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "sqlite/Statement.h"
#include "sqlite/Transaction.h"

namespace sim {

namespace {

constexpr int kBusyMilliseconds = 5000;

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

bool hasTable(const sqlite::Database& database, const std::string& table) {
    return sqlite::Statement(database, "SELECT 1 FROM sqlite_master WHERE name = ?").bind(1, table).step();
}

void insert(const sqlite::Database& database, const std::string& table, const std::vector<Database::Fields>& records) {
    sqlite::Statement row(database, "INSERT INTO " + table + " (record, position, field, value) VALUES (?, ?, ?, ?)");
    int record = 0;
    for (const Database::Fields& fields : records) {
        int position = 0;
        for (const auto& [field, value] : fields) {
            row.bind(1, record).bind(2, position++).bind(3, field).bind(4, value).run();
        }
        ++record;
    }
}

}  // namespace

Database::Database(const std::string& name) : mDatabase(fileOf(name), sqlite::Access::CREATE, kBusyMilliseconds) {
    mDatabase.execute("PRAGMA journal_mode=WAL");
}

std::vector<Database::Fields> Database::read(const std::string& table) {
    std::vector<Fields> records;
    if (!hasTable(mDatabase, table)) {
        return records;
    }
    sqlite::Statement rows(
        mDatabase, "SELECT position, field, value FROM " + sqlite::quoted(table) + " ORDER BY record, position");
    while (rows.step()) {
        if (records.empty() || rows.number(0) == 0) {
            records.emplace_back();
        }
        records.back().emplace_back(rows.text(1), rows.text(2));
    }
    return records;
}

void Database::replace(const std::string& table, const std::vector<Fields>& records) {
    const std::string name = sqlite::quoted(table);
    sqlite::Transaction update(mDatabase);
    mDatabase.execute("CREATE TABLE IF NOT EXISTS " + name +
                      " (record INTEGER NOT NULL, position INTEGER NOT NULL, field TEXT NOT NULL,"
                      " kind INTEGER NOT NULL DEFAULT 1, value TEXT NOT NULL, PRIMARY KEY (record, position))"
                      " WITHOUT ROWID");
    mDatabase.execute("DELETE FROM " + name);
    insert(mDatabase, name, records);
    update.commit();
}

}  // namespace sim
