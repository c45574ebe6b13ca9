// SPDX-License-Identifier: Apache-2.0
#include "Opening.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <filesystem>

namespace localdb {

namespace {

constexpr int kBusyMilliseconds = 5000;

// This is the first statement that reads the file, so a file that is not a database fails here. It creates the log
// beside the file.
void readSchema(sqlite::Database& database) {
    database.execute("SELECT count(*) FROM sqlite_master");
}

// In WAL mode, readers do not wait for writers. If several processes open a new file at once, one sets the mode, and
// the others may find the file locked. They can continue, because the file stores the mode.
void setWalMode(sqlite::Database& database) {
    try {
        database.execute("PRAGMA journal_mode=WAL");
    } catch (const sqlite::Error& error) {
        if (!error.isBusy()) {
            throw;
        }
    }
}

// SQLite gives its logs the permissions of the database. A file of an earlier version may have others. It is not
// opened here, because closing it would release the locks of this process.
void keepPrivate(const std::string& file) {
    const int created = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (created >= 0) {
        close(created);
        return;
    }
    struct stat status {};
    if (stat(file.c_str(), &status) == 0 && (status.st_mode & 077) != 0) {
        chmod(file.c_str(), status.st_mode & 0700);
    }
}

std::unique_ptr<sqlite::Database> openForWriting(const std::string& file) {
    keepPrivate(file);
    auto database = std::make_unique<sqlite::Database>(file, sqlite::Access::CREATE, kBusyMilliseconds);
    database->execute("PRAGMA trusted_schema=OFF; PRAGMA synchronous=FULL");
    setWalMode(*database);
    readSchema(*database);
    return database;
}

bool isOnReadOnlyMedium(const std::string& file) {
    struct statvfs medium {};
    return statvfs(file.c_str(), &medium) == 0 && (medium.f_flag & ST_RDONLY) != 0;
}

bool hasLog(const std::string& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file + "-wal", error);
    return !error && size > 0;
}

// To read a database in WAL mode, SQLite needs its log and creates it if it is missing. This is impossible on a
// read-only file system, but there a database that was closed properly can be read without its log.
std::unique_ptr<sqlite::Database> openForReading(const std::string& file) {
    const bool isAlone = isOnReadOnlyMedium(file) && !hasLog(file);
    const auto access = isAlone ? sqlite::Access::READ_ALONE : sqlite::Access::READ;
    auto database = std::make_unique<sqlite::Database>(file, access, kBusyMilliseconds);
    readSchema(*database);
    return database;
}

}  // namespace

std::unique_ptr<sqlite::Database> openFile(const std::string& file) {
    try {
        return openForWriting(file);
    } catch (const sqlite::Error& error) {
        if (!error.isAccessRefused()) {
            throw;
        }
    }
    return openForReading(file);
}

}  // namespace localdb
