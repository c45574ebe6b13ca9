// SPDX-License-Identifier: Apache-2.0
// The subscriptions to keys. Changes arrive on the IO thread, and callbacks run on the main loop. If a subscription
// ends before its posted call runs, its callback is not called.
#pragma once

#include <vconf.h>

#include <mutex>
#include <string>
#include <vector>

namespace settings {

class Subscriptions {
public:
    // The pair of path and callback identifies a subscription. Subscribing again replaces the user data.
    void add(const std::string& path, vconf_callback_fn callback, void* userData);
    bool remove(const std::string& path, vconf_callback_fn callback);
    // IO thread only. A path with a trailing "/" means all keys in that directory.
    void changed(const std::vector<std::string>& paths);

private:
    struct Subscription {
        unsigned long id;
        std::string path;
        vconf_callback_fn callback;
        void* userData;
    };

    void notify(unsigned long id);
    std::vector<Subscription>::iterator find(const std::string& path, vconf_callback_fn callback);  // needs the mutex

    std::mutex mMutex;
    std::vector<Subscription> mAll;
    unsigned long mLastId = 0;
};

}  // namespace settings
