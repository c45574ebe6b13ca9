// SPDX-License-Identifier: Apache-2.0
#include "Manager.h"

#include "Location.h"
#include "Opening.h"
#include "sqlite/Statement.h"
#include "sqlite/Transaction.h"

namespace localdb {

namespace {

bool hasTable(sqlite::Database& database, const std::string& table) {
    sqlite::Statement query(database,
                            "SELECT 1 FROM sqlite_master WHERE type IN ('table', 'view') AND name = ? COLLATE NOCASE");
    return query.bind(1, table).step();
}

void insert(sqlite::Database& database, const std::string& table, const Manager::Records& records) {
    sqlite::Statement row(database, "INSERT INTO " + table + " (record, position, field, value) VALUES (?, ?, ?, ?)");
    int number = 0;
    for (const Record* record : records) {
        int position = 0;
        for (const auto& [field, value] : record->fields()) {
            row.bind(1, number).bind(2, position++).bind(3, field).bind(4, value).run();
        }
        ++number;
    }
}

// If the file is replaced later, SQLite would apply the old file's log to the new file. Emptying the log prevents that.
// The checkpoint fails while another connection reads; the next update tries again.
void emptyLog(sqlite::Database& database) {
    try {
        database.execute("PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const sqlite::Error&) {
        // The update is complete without the checkpoint.
    }
}

}  // namespace

void Manager::open() {
    mDatabase.reset();
    mFile = fileOf(mName);
    mDatabase = openFile(mFile);
    mOpened = FileIdentity::of(mFile);
}

// Opens the file again if it was removed or replaced. Also tries again if it could not be opened, or could be opened
// only for reading.
sqlite::Database& Manager::current() {
    if (!mDatabase || !FileIdentity::of(mFile).isSame(mOpened) || mDatabase->isReadOnly()) {
        open();
    }
    return *mDatabase;
}

bool Manager::walk(const std::string& table, const Visitor& visitor) {
    sqlite::Database& database = current();
    if (!hasTable(database, table)) {
        return false;
    }
    sqlite::Statement rows(database,
                           "SELECT field, kind, value FROM " + sqlite::quoted(table) + " ORDER BY record, position");
    while (rows.step() && visitor(rows.text(0), rows.number(1), rows.text(2))) {
    }
    return true;
}

void Manager::replace(const Records& records) {
    sqlite::Database& database = current();
    const std::string table = sqlite::quoted(mName);
    sqlite::Transaction update(database);
    database.execute("CREATE TABLE IF NOT EXISTS " + table +
                     " (record INTEGER NOT NULL, position INTEGER NOT NULL, field TEXT NOT NULL,"
                     " kind INTEGER NOT NULL DEFAULT 1, value TEXT NOT NULL, PRIMARY KEY (record, position))"
                     " WITHOUT ROWID");
    database.execute("DELETE FROM " + table);
    insert(database, table, records);
    update.commit();
    emptyLog(database);
}

}  // namespace localdb
