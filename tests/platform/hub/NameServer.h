// SPDX-License-Identifier: Apache-2.0
// This program looks up names that end in ".invalid" by itself, whatever the machine's name servers do: there are none.
#pragma once

namespace hub_test {

// As long as it lives, nothing is answered about them. One at a time.
class SilentNameServer {
public:
    SilentNameServer();
    ~SilentNameServer();
    SilentNameServer(const SilentNameServer&) = delete;
    SilentNameServer& operator=(const SilentNameServer&) = delete;

    int asked() const;
};

}  // namespace hub_test
