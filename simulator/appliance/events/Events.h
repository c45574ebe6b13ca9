// SPDX-License-Identifier: Apache-2.0
// The events that all applications of the appliance record, in the order of their time.
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

    // From now on, read() passes every event to `watcher`.
    void watch(Watcher watcher) { mWatcher = std::move(watcher); }
    // Reads what has been written since the last call.
    void read();

    // A page begins with the next event; the functions below look only at the current page.
    void turnPage();
    // Waits for the first event of the application that has these members. Throws std::runtime_error after `seconds`.
    Event await(const std::string& application, const Event& wanted, double seconds);
    int count(const std::string& application, const Event& wanted);
    std::vector<Event> page();

    // As count(), over all pages.
    int countEver(const std::string& application, const Event& wanted);

private:
    int countFrom(std::size_t first, const std::string& application, const Event& wanted);

    std::string mFolder;
    std::map<std::string, std::streamoff> mRead;
    std::vector<Event> mAll;
    std::size_t mPage = 0;  // index of its first event
    Watcher mWatcher;
};

}  // namespace sim
