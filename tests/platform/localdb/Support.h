// SPDX-License-Identifier: Apache-2.0
// A directory of databases for one test, records as plain lists, and child processes.
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
// "name:kind=value" of every field, in the order of the iteration.
using Fields = std::vector<std::string>;

struct Destroy {
    void operator()(vrd_manager_h manager) const noexcept { vrd_manager_destroy(manager); }
    void operator()(vrd_bundle_h record) const noexcept { vrd_bundle_destroy(record); }
};
using Manager = std::unique_ptr<vrd_manager_s, Destroy>;

Manager openDatabase(const std::string& name, int expected = VRD_ERROR_NONE);
int update(vrd_manager_h manager, const List& list);
Fields walk(vrd_manager_h manager, const std::string& table, int expected = VRD_ERROR_NONE);
// `count` users, each marked with `mark`, so that lists with different marks differ in every record.
List users(const std::string& mark, int count);
// The mark that all records of a complete list have; "none" for an empty list. Fails the test for any other list.
std::string markOf(const Fields& fields);

// The lines that the platform logs during `action`.
std::vector<std::string> logOf(const std::function<void()>& action);

// A child process that runs `action`. Its exit code is 1 if an expectation in it fails.
pid_t inChild(const std::function<void()>& action);
// Returns the child's exit code, or 128 plus the signal that ended it.
int await(pid_t child);

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
