// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Subscriptions.h"
#include "dconf/Client.h"

namespace settings {

// The settings store of the process. It uses dconf and maps "db/x" to "/db/x" and "memory/x" to "/memory/x". The first
// use after a reboot removes all keys in memory/. Any thread.
class Store {
public:
    Store();
    // The process's store. Throws process::Ended.
    static Store& get();

    static std::string pathOf(const char* key);  // empty if the key is not a valid dconf path
    gio::Variant read(const std::string& path) const { return mClient.read(path); }
    bool write(const std::string& path, GVariant* value);  // the value must not be floating
    Subscriptions& subscriptions() { return mSubscriptions; }

private:
    void forgetAfterRestart();

    Subscriptions mSubscriptions;
    dconf::Client mClient;
    bool mWritable;
};

}  // namespace settings
