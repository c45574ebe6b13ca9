// SPDX-License-Identifier: Apache-2.0
// Who wants to know of which key. Changes come on the I/O thread and are told on the main loop; a subscription that
// ends before its posted call runs is not called.
#pragma once

#include <vconf.h>

#include <mutex>
#include <string>
#include <vector>

namespace settings {

class Subscriptions {
public:
    // One subscription a pair of path and callback: added again, it takes the new user data.
    void add(const std::string& path, vconf_callback_fn callback, void* userData);
    bool remove(const std::string& path, vconf_callback_fn callback);
    // On the I/O thread; a path with a closing "/" stands for everything below it.
    void changed(const std::vector<std::string>& paths);

private:
    struct Subscription {
        unsigned long id;
        std::string path;
        vconf_callback_fn callback;
        void* userData;
    };

    void tell(unsigned long id);
    std::vector<Subscription>::iterator find(const std::string& path, vconf_callback_fn callback);  // mutex held

    std::mutex mMutex;
    std::vector<Subscription> mAll;
    unsigned long mLastId = 0;
};

}  // namespace settings
