// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Subscriptions.h"
#include "dconf/Client.h"

namespace settings {

// The settings store of the process: dconf, with "db/x" and "memory/x" as "/db/x" and "/memory/x". What lies in memory/
// is forgotten at the first use after the machine has restarted. Any thread.
class Store {
public:
    static Store& get();

    static std::string pathOf(const char* key);  // empty for a key that dconf cannot hold
    gio::Variant read(const std::string& path) const { return mClient->read(path); }
    bool write(const std::string& path, GVariant* value);
    Subscriptions& subscriptions() { return mSubscriptions; }

private:
    Store();
    void forgetAfterRestart();

    Subscriptions mSubscriptions;
    dconf::Client* mClient;
    bool mWritable;
};

}  // namespace settings
