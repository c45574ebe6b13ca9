// SPDX-License-Identifier: Apache-2.0
// What the sanitizers say of the processes on the appliance, which write it into the logs in its folder.
#pragma once

#include "appliance/Folder.h"

namespace sim {

// From the first report on, of every log that has one; empty without any.
std::string sanitizerReports(const Folder& folder);

// Made before the processes, so that it goes after them: a report, wherever it came from, ends the program with a
// failure. The logs stay for whoever looks into it.
class Reports {
public:
    explicit Reports(const Folder& folder) : mFolder(folder) {}
    ~Reports();
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

private:
    const Folder& mFolder;
};

}  // namespace sim
