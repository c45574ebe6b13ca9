// SPDX-License-Identifier: Apache-2.0
// This program answers lookups of names that end in ".invalid" itself: there is no such host.
#pragma once

namespace hub_test {

// While an object exists, such lookups do not return. Only one object at a time.
class SilentNameServer {
public:
    SilentNameServer();
    ~SilentNameServer();
    SilentNameServer(const SilentNameServer&) = delete;
    SilentNameServer& operator=(const SilentNameServer&) = delete;

    int asked() const;
};

}  // namespace hub_test
