// SPDX-License-Identifier: Apache-2.0
// The hub server on loopback, and the account that may log in.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"

namespace sim {

class Hub {
public:
    // Returns when the server accepts connections. Throws std::runtime_error.
    explicit Hub(const Folder& folder);

    // Both lists take effect with the next request, which is number 1.
    // A list of {"id", "name", "users": [{"id", "name"}]}.
    void families(nlohmann::json list);
    // A list of {"request": number, "kind", ...}, described in simulator/hub-server/Household.h.
    void faults(nlohmann::json list);

private:
    void write() const;

    const Folder& mFolder;
    nlohmann::json mHousehold;
    std::unique_ptr<Process> mServer;
};

}  // namespace sim
