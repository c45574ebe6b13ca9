// SPDX-License-Identifier: Apache-2.0
#include "appliance/Events.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace sim {

namespace {

// Whole lines only; the rest comes with the next reading.
void readLines(const std::string& path, std::streamoff& position, std::vector<Event>& events) {
    std::ifstream file(path);
    file.seekg(position);
    for (std::string line; std::getline(file, line) && !file.eof();) {
        position += static_cast<std::streamoff>(line.size()) + 1;
        events.push_back(Event::parse(line));
    }
}

}  // namespace

void Events::read() {
    std::vector<Event> fresh;
    for (const auto& file : std::filesystem::directory_iterator(mFolder)) {
        readLines(file.path(), mRead[file.path()], fresh);
    }
    std::stable_sort(fresh.begin(), fresh.end(),
                     [](const Event& a, const Event& b) { return a["at"].get<double>() < b["at"].get<double>(); });
    for (Event& event : fresh) {
        mAll.push_back(std::move(event));
        if (mWatcher) {
            mWatcher(mAll.back());
        }
    }
}

bool matches(const Event& event, const Event& wanted) {
    return std::all_of(wanted.items().begin(), wanted.items().end(), [&event](const auto& member) {
        return event.contains(member.key()) && event[member.key()] == member.value();
    });
}

}  // namespace sim
