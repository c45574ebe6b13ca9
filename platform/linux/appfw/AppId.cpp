// SPDX-License-Identifier: Apache-2.0
#include "AppId.h"

#include <algorithm>
#include <vector>

#include "gio/Bus.h"

namespace appfw {

namespace {

// Never destroyed: other threads still name it while the process ends.
std::string& mine() {
    static auto* instance = new std::string;
    return *instance;
}

bool isApplication(const std::string& name) {
    for (const char* other :
         {":", "org.freedesktop.", "org.orvane.Focus.", "org.orvane.VoiceControl", "org.a11y.", "org.gtk.vfs."}) {
        if (name.compare(0, std::char_traits<char>::length(other), other) == 0) {
            return false;
        }
    }
    return true;
}

std::vector<std::string> applications() {
    gio::Error error;
    const gio::Variant answer = gio::Bus::session().ask("ListNames", nullptr, "(as)", error);
    std::vector<std::string> names;
    if (answer) {
        const gio::Variant list(g_variant_get_child_value(answer.get(), 0));
        for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
            const gio::Variant name(g_variant_get_child_value(list.get(), i));
            names.emplace_back(g_variant_get_string(name.get(), nullptr));
        }
    }
    names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return !isApplication(name); }),
                names.end());
    std::sort(names.begin(), names.end());
    return names;
}

pid_t processOf(const std::string& name) {
    gio::Error error;
    const gio::Variant answer =
        gio::Bus::session().ask("GetConnectionUnixProcessID", g_variant_new("(s)", name.c_str()), "(u)", error);
    guint32 pid = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &pid);
    }
    return static_cast<pid_t>(pid);
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

const std::string& ownAppId() {
    return mine();
}

void setOwnAppId(const std::string& id) {
    mine() = id;
}

}  // namespace appfw
