// SPDX-License-Identifier: Apache-2.0
#include "Manager.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include "Location.h"
#include "sqlite/Statement.h"

namespace {

constexpr int kBusyMilliseconds = 5000;

// The first look at the file, which makes its log: one that is no database is told here.
void look(sqlite::Database& database) {
    database.execute("SELECT count(*) FROM sqlite_master");
}

// One of several processes that open a new file at once makes the switch; the others may find the file locked and go
// on with what it is, since the file itself remembers the mode.
void keepReadersFromWaiting(sqlite::Database& database) {
    try {
        database.execute("PRAGMA journal_mode=WAL");
    } catch (const sqlite::Error& error) {
        if (error.code() != SQLITE_BUSY) {
            throw;
        }
    }
}

bool isOnReadOnlyMedium(const std::string& file) {
    struct statvfs medium {};
    return statvfs(file.c_str(), &medium) == 0 && (medium.f_flag & ST_RDONLY) != 0;
}

std::string logOf(const std::string& file) {
    return file + "-wal";
}

// Zeros when there is no such file.
struct stat statusOf(const std::string& file) {
    struct stat status {};
    stat(file.c_str(), &status);
    return status;
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_ino != 0 && one.st_ino == other.st_ino && one.st_dev == other.st_dev;
}

std::string uriOf(const std::string& file) {
    std::string uri = "file:";
    for (const char letter : file) {
        uri += letter == '%' ? "%25" : letter == '?' ? "%3f" : letter == '#' ? "%23" : std::string(1, letter);
    }
    return uri + "?immutable=1";
}

std::unique_ptr<sqlite::Database> openForWriting(const std::string& file) {
    auto database =
        std::make_unique<sqlite::Database>(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, kBusyMilliseconds);
    database->execute("PRAGMA trusted_schema=OFF; PRAGMA synchronous=FULL");
    keepReadersFromWaiting(*database);
    look(*database);
    return database;
}

// A database that was closed in order has no log beside it, and on a medium that nobody can write none can be made: it
// is then read as the file alone.
std::unique_ptr<sqlite::Database> openForReading(const std::string& file) {
    const bool alone = isOnReadOnlyMedium(file) && statusOf(logOf(file)).st_size == 0;
    const int flags = SQLITE_OPEN_READONLY | (alone ? SQLITE_OPEN_URI : 0);
    auto database = std::make_unique<sqlite::Database>(alone ? uriOf(file) : file, flags, kBusyMilliseconds);
    look(*database);
    return database;
}

bool hasTable(sqlite::Database& database, const std::string& table) {
    sqlite::Statement query(database,
                            "SELECT 1 FROM sqlite_master WHERE type IN ('table', 'view') AND name = ? COLLATE NOCASE");
    return query.bind(1, table).step();
}

void insert(sqlite::Database& database, const std::string& table, const vrd_manager_s::Records& records) {
    sqlite::Statement row(database, "INSERT INTO " + table + " (record, position, field, value) VALUES (?, ?, ?, ?)");
    int number = 0;
    for (const vrd_bundle_s* record : records) {
        int position = 0;
        for (const auto& [field, value] : record->fields) {
            row.bind(1, number).bind(2, position++).bind(3, field).bind(4, value).run();
        }
        ++number;
    }
}

// A log with something in it would be read into another file that somebody puts in this one's place. What cannot be
// moved now, as somebody reads, is moved by the next update.
void emptyLog(sqlite::Database& database) {
    try {
        database.execute("PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const sqlite::Error&) {
        // The update stands all the same.
    }
}

}  // namespace

vrd_manager_s::vrd_manager_s(const std::string& name) : mName(name) {}

void vrd_manager_s::open() {
    mDatabase.reset();
    mFile = localdb::fileOf(mName);
    try {
        mDatabase = openForWriting(mFile);
    } catch (const sqlite::Error& error) {
        if (error.code() != SQLITE_READONLY && error.code() != SQLITE_CANTOPEN) {
            throw;
        }
        mDatabase = openForReading(mFile);
    }
    mOpened = statusOf(mFile);
}

// Someone may remove the file or put another in its place: what is asked from now on is asked of that one. What could
// not be opened, or only for reading, may be open to us by now.
sqlite::Database& vrd_manager_s::database() {
    if (!mDatabase || !isSame(statusOf(mFile), mOpened) || mDatabase->isReadOnly()) {
        open();
    }
    return *mDatabase;
}

bool vrd_manager_s::walk(const std::string& table, const Visitor& visitor) {
    sqlite::Database& opened = database();
    if (!hasTable(opened, table)) {
        return false;
    }
    sqlite::Statement rows(opened,
                           "SELECT field, kind, value FROM " + sqlite::quoted(table) + " ORDER BY record, position");
    while (rows.step() && visitor(rows.text(0), rows.number(1), rows.text(2))) {
    }
    return true;
}

void vrd_manager_s::replace(const Records& records) {
    sqlite::Database& opened = database();
    const std::string table = sqlite::quoted(mName);
    sqlite::Transaction update(opened);
    opened.execute("CREATE TABLE IF NOT EXISTS " + table +
                   " (record INTEGER NOT NULL, position INTEGER NOT NULL, field TEXT NOT NULL,"
                   " kind INTEGER NOT NULL DEFAULT 1, value TEXT NOT NULL, PRIMARY KEY (record, position))"
                   " WITHOUT ROWID");
    opened.execute("DELETE FROM " + table);
    insert(opened, table, records);
    update.commit();
    emptyLog(opened);
}
