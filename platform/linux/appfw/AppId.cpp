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

// 0 if the connection is gone.
pid_t processOf(const std::string& name) {
    try {
        const auto answer =
            bus::session().call(gio::messageBus(), "GetConnectionUnixProcessID", gio::Variant::tuple(name));
        return static_cast<pid_t>(std::get<0>(answer.fields<std::uint32_t>()));
    } catch (const gio::CallError&) {
        return 0;
    }
}

}  // namespace

std::string appIdOf(pid_t pid) {
    for (const std::string& name : applications()) {
        if (processOf(name) == pid) {
            return name;
        }
    }
    return "";
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
