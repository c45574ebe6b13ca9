// SPDX-License-Identifier: Apache-2.0
// A stand-in for NetworkManager on the system bus, with at most one connection.
// Action: network ethernet|wifi|none.
#pragma once

#include "lib/Bus.h"

namespace sim {

class NetworkManager {
public:
    explicit NetworkManager(const std::string& name);
    void run();

private:
    void change(const std::string& kind);
    GVariant* property(const std::string& name) const;

    std::string mName;
    std::string mKind = "ethernet";
    Bus mBus;
};

}  // namespace sim
