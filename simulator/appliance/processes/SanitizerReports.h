// SPDX-License-Identifier: Apache-2.0
// Reports of the sanitizers, which the processes of the appliance write into the logs in its directory.
#pragma once

#include "appliance/environment/Folder.h"

namespace sim {

// The rest of each log from its first report on; empty when no log has one.
std::string sanitizerReports(const Folder& folder);

// Its destructor ends the program with a failure when a log has a report, and leaves the logs in place. Create it
// before the processes, so that it is destroyed after them.
class SanitizerReports {
public:
    explicit SanitizerReports(const Folder& folder) : mFolder(folder) {}
    ~SanitizerReports();
    SanitizerReports(const SanitizerReports&) = delete;
    SanitizerReports& operator=(const SanitizerReports&) = delete;

private:
    const Folder& mFolder;
};

}  // namespace sim
