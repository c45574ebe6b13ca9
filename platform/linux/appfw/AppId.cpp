// SPDX-License-Identifier: Apache-2.0
#include "AppId.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "bus/SessionBus.h"
#include "process/Owner.h"

namespace appfw {

namespace {

struct OwnId {
    std::mutex mutex;
    std::string id;
};

bool isApplication(const std::string& name) {
    for (const char* other :
         {":", "org.freedesktop.", "org.orvane.Focus.", "org.orvane.VoiceControl", "org.a11y.", "org.gtk.vfs."}) {
        if (name.compare(0, std::char_traits<char>::length(other), other) == 0) {
            return false;
        }
    }
    return true;
}

// Empty if the bus does not answer.
std::vector<std::string> namesOnTheBus() {
    try {
        const auto answer = bus::session().call(gio::messageBus(), "ListNames");
        return std::get<0>(answer.fields<std::vector<std::string>>());
    } catch (const gio::CallError&) {
        return {};
    }
}

std::vector<std::string> applications() {
    std::vector<std::string> names = namesOnTheBus();
    names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return !isApplication(name); }),
                names.end());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

std::string appIdOf(pid_t pid) {
    // The bus answers after it has reported all earlier changes, so the IO thread knows them when the work below runs.
    const std::vector<std::string> names = applications();
    std::string id;
    bus::ioThread().run([&] {
        const auto found = std::find_if(names.begin(), names.end(),
                                        [=](const auto& name) { return bus::peers().processOf(name) == pid; });
        id = found == names.end() ? "" : *found;
    });
    return id;
}

std::string ownAppId() {
    auto& own = process::shared<OwnId>();
    const std::lock_guard lock(own.mutex);
    return own.id;
}

void setOwnAppId(const std::string& id) {
    auto& own = process::shared<OwnId>();
    const std::lock_guard lock(own.mutex);
    own.id = id;
}

}  // namespace appfw
