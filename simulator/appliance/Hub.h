// SPDX-License-Identifier: Apache-2.0
// The hub server on loopback, with a household that its file describes, and the account that it lets in.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>

#include "appliance/Folder.h"
#include "appliance/Process.h"

namespace sim {

class Hub {
public:
    // Listens when this returns. Throws std::runtime_error.
    explicit Hub(const Folder& folder);

    // A list of {"id", "name", "users": [{"id", "name"}]}. Both lists count from the next request on, which is
    // number 1.
    void families(nlohmann::json list);
    // A list of {"request": number, "kind", ...}, as simulator/hub-server/Household.h tells.
    void faults(nlohmann::json list);

private:
    void write() const;

    const Folder& mFolder;
    nlohmann::json mHousehold;
    std::unique_ptr<Process> mServer;
};

}  // namespace sim
