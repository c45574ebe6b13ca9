// SPDX-License-Identifier: Apache-2.0
// A folder of databases for one test, records as plain lists, and children that do something else at the same time.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orvane_da_db.h"

namespace localdb_test {

using Record = std::vector<std::pair<std::string, std::string>>;
using List = std::vector<Record>;
// "name:kind=value" of every field, in the order of the walk.
using Fields = std::vector<std::string>;

struct Destroy {
    void operator()(vrd_manager_h manager) const noexcept { vrd_manager_destroy(manager); }
    void operator()(vrd_bundle_h record) const noexcept { vrd_bundle_destroy(record); }
};
using Manager = std::unique_ptr<vrd_manager_s, Destroy>;

Manager openDatabase(const std::string& name, int expected = VRD_ERROR_NONE);
int update(vrd_manager_h manager, const List& list);
Fields walk(vrd_manager_h manager, const std::string& table, int expected = VRD_ERROR_NONE);
// `count` users, each marked with `mark`: lists of different marks differ in every record.
List users(const std::string& mark, int count);
// The mark of a whole, unmixed list of users; "none" for no users; fails the test otherwise.
std::string markOf(const Fields& fields);

// What the room wrote to its log meanwhile, as lines.
std::vector<std::string> logOf(const std::function<void()>& action);

// A child process that runs `action`; its exit code is 1 when an expectation in it failed.
pid_t inChild(const std::function<void()>& action);
// Its exit code, or 128 and the signal that ended it.
int await(pid_t child);
// The child has mounts of its own, with a new file system of `bytes` on the databases' folder.
int inSmallFileSystem(std::size_t bytes, const std::function<void()>& action);

class DatabaseFolder : public testing::Test {
protected:
    DatabaseFolder();
    ~DatabaseFolder() override;
    std::string file(const std::string& name) const { return mPath + "/" + name + ".db"; }
    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

}  // namespace localdb_test
