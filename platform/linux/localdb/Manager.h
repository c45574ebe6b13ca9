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

// One named database, which any number of processes read and write. Readers see the state before or after an update
// and never wait for a writer; writers wait for each other. One thread at a time may use it. All functions throw
// sqlite::Error and other std::exception.
class Manager {
public:
    // Returns false to stop the iteration.
    using Visitor = std::function<bool(const char* field, int kind, const char* value)>;
    using Records = std::vector<const Record*>;

    // Does not open the database.
    explicit Manager(const std::string& name) : mName(name) {}

    const std::string& name() const { return mName; }
    // Opens the database now. The two functions below open it by themselves if it is not open, or no longer current.
    void open();
    // Returns false if there is no such table.
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
