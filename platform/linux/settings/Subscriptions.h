// SPDX-License-Identifier: Apache-2.0
// The subscriptions to keys. Changes arrive on the IO thread, and the callbacks run on the main loop. The callback of a
// subscription that ends before its posted call runs is not called.
#pragma once

#include <vconf.h>

#include <mutex>
#include <string>
#include <vector>

namespace settings {

class Subscriptions {
public:
    // The pair of path and callback identifies a subscription. If it exists, it gets the new user data.
    void add(const std::string& path, vconf_callback_fn callback, void* userData);
    bool remove(const std::string& path, vconf_callback_fn callback);
    // On the IO thread. A path with a closing "/" means all keys in the folder.
    void changed(const std::vector<std::string>& paths);

private:
    struct Subscription {
        unsigned long id;
        std::string path;
        vconf_callback_fn callback;
        void* userData;
    };

    void notify(unsigned long id);
    std::vector<Subscription>::iterator find(const std::string& path, vconf_callback_fn callback);  // mutex held

    std::mutex mMutex;
    std::vector<Subscription> mAll;
    unsigned long mLastId = 0;
};

}  // namespace settings
