// SPDX-License-Identifier: Apache-2.0
// What all applications have recorded, as it comes.
#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace sim {

using Event = nlohmann::json;

class Events {
public:
    using Watcher = std::function<void(const Event&)>;

    explicit Events(std::string folder) : mFolder(std::move(folder)) {}

    void watch(Watcher watcher) { mWatcher = std::move(watcher); }
    // Takes in what has been written since the last call.
    void read();
    const std::vector<Event>& all() const { return mAll; }

private:
    std::string mFolder;
    std::map<std::string, std::streamoff> mRead;
    std::vector<Event> mAll;
    Watcher mWatcher;
};

// `event` has every member of `wanted` with its value.
bool matches(const Event& event, const Event& wanted);

}  // namespace sim
