// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Subscriptions.h"
#include "dconf/Client.h"

namespace settings {

// The settings store of the process: dconf, where "db/x" is "/db/x" and "memory/x" is "/memory/x". The first use after
// a restart of the machine removes all keys in memory/. Any thread.
class Store {
public:
    Store();
    // The process's store. Throws process::Ended.
    static Store& get();

    static std::string pathOf(const char* key);  // empty for a key that dconf cannot hold
    gio::Variant read(const std::string& path) const { return mClient.read(path); }
    bool write(const std::string& path, GVariant* value);  // the value is not floating
    Subscriptions& subscriptions() { return mSubscriptions; }

private:
    void forgetAfterRestart();

    Subscriptions mSubscriptions;
    dconf::Client mClient;
    bool mWritable;
};

}  // namespace settings
