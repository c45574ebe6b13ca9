// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FileIdentity.h"
#include "Record.h"
#include "sqlite/Database.h"

namespace localdb {

// One named database. Any number of processes may read and write it. Readers see the state before or after an update
// and never wait for writers; writers wait for each other. One thread at a time may use it. All functions throw
// sqlite::Error and other std::exception.
class Manager {
public:
    // Returns false to stop the iteration.
    using Visitor = std::function<bool(const char* field, int kind, const char* value)>;
    using Records = std::vector<const Record*>;

    // Does not open the database.
    explicit Manager(const std::string& name) : mName(name) {}

    const std::string& name() const { return mName; }
    // Opens the database now. If it is not open, or the file was replaced, the two functions below open it too.
    void open();
    // Returns false if the table does not exist.
    bool walk(const std::string& table, const Visitor& visitor);
    // Replaces all records of the private table.
    void replace(const Records& records);

private:
    sqlite::Database& current();

    std::string mName;
    std::string mFile;
    std::unique_ptr<sqlite::Database> mDatabase;
    FileIdentity mOpened;
};

}  // namespace localdb
