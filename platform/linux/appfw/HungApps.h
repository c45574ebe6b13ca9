// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <set>
#include <string>

namespace appfw {

// The applications that did not reply to a message in time, so that no caller waits for them again. Shared by the
// process. Any thread; nothing here blocks.
class HungApps {
public:
    bool contains(const std::string& app);
    // From now on, the list contains the application, until it replies or ends.
    void add(const std::string& app);

private:
    void remove(const std::string& app);

    std::mutex mMutex;
    std::set<std::string> mApps;
};

}  // namespace appfw
