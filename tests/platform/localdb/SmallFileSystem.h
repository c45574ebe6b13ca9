// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

#include "Support.h"

namespace localdb_test {

// A test that runs in a child process, with a new file system of 1 MiB mounted on the databases'
// directory.
class SmallFileSystem : public DatabaseFolder {
protected:
    // Skips the test, and names the reason, where the machine lets no process mount a file system.
    void SetUp() override;
    // Returns the child's exit code.
    int inside(const std::function<void()>& action) const;
    void remountReadOnly() const;
    void remountWritable() const;

private:
    void remount(unsigned long flags) const;
};

}  // namespace localdb_test
