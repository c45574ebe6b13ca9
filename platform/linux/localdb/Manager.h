// SPDX-License-Identifier: Apache-2.0
// One named database. Any number of processes read and write it: readers see the state before or after an update and
// never wait for a writer; writers wait for each other.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "sqlite/Database.h"

struct vrd_bundle_s {
    std::vector<std::pair<std::string, std::string>> fields;  // each key once
};

struct vrd_manager_s {
public:
    // Returns false to end the walk.
    using Visitor = std::function<bool(const char* field, int kind, const char* value)>;
    using Records = std::vector<const vrd_bundle_s*>;

    // Not open yet.
    explicit vrd_manager_s(const std::string& name);

    const std::string& name() const { return mName; }
    // Makes the file when there is none; one that can only be read is opened for that. What fails here is tried again
    // by the next of the two below. All three throw sqlite::Error or std::exception.
    void open();
    // False when there is no such table.
    bool walk(const std::string& table, const Visitor& visitor);
    void replace(const Records& records);

private:
    sqlite::Database& database();

    std::string mName;
    std::string mFile;
    std::unique_ptr<sqlite::Database> mDatabase;
    struct stat mOpened {};
};
