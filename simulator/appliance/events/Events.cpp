// SPDX-License-Identifier: Apache-2.0
#include "appliance/events/Events.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "appliance/processes/Until.h"

namespace sim {

namespace {

// Reads complete lines only; the rest of an incomplete line follows with the next call.
void readLines(const std::string& path, std::streamoff& position, std::vector<Event>& events) {
    std::ifstream file(path);
    file.seekg(position);
    for (std::string line; std::getline(file, line) && !file.eof();) {
        position += static_cast<std::streamoff>(line.size()) + 1;
        events.push_back(Event::parse(line));
    }
}

bool matches(const Event& event, const std::string& application, const Event& wanted) {
    return event["app"] == application &&
           std::all_of(wanted.items().begin(), wanted.items().end(), [&event](const auto& member) {
               return event.contains(member.key()) && event[member.key()] == member.value();
           });
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

void Events::turnPage() {
    read();
    mPage = mAll.size();
}

Event Events::await(const std::string& application, const Event& wanted, double seconds) {
    Event found;
    until(
        application + " records " + wanted.dump(),
        [&] {
            read();
            const auto first = std::find_if(mAll.begin() + static_cast<std::ptrdiff_t>(mPage), mAll.end(),
                                            [&](const Event& event) { return matches(event, application, wanted); });
            found = first == mAll.end() ? Event() : *first;
            return first != mAll.end();
        },
        seconds);
    return found;
}

int Events::count(const std::string& application, const Event& wanted) {
    return countFrom(mPage, application, wanted);
}

int Events::countEver(const std::string& application, const Event& wanted) {
    return countFrom(0, application, wanted);
}

int Events::countFrom(std::size_t first, const std::string& application, const Event& wanted) {
    read();
    return static_cast<int>(std::count_if(mAll.begin() + static_cast<std::ptrdiff_t>(first), mAll.end(),
                                          [&](const Event& event) { return matches(event, application, wanted); }));
}

std::vector<Event> Events::page() {
    read();
    return {mAll.begin() + static_cast<std::ptrdiff_t>(mPage), mAll.end()};
}

}  // namespace sim
