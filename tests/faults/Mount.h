// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>

#include "Trial.h"

namespace faults {

// Hides a directory behind an empty file system with these mount options for as long as this object exists.
class Mount {
public:
    // Throws CannotRun where this user may not mount.
    Mount(Trial& trial, const std::string& options, std::string folder) : mTrial(trial), mFolder(std::move(folder)) {
        if (trial.run({"mount", "-t", "tmpfs", "-o", options, "none", mFolder}) != 0) {
            throw CannotRun{"this machine does not permit mounts"};
        }
    }
    ~Mount() { mTrial.run({"umount", "-l", mFolder}); }
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;

private:
    Trial& mTrial;
    const std::string mFolder;
};

}  // namespace faults
