// SPDX-License-Identifier: Apache-2.0
// What an app_control_h is, and how it travels. docs/dbus.md has the wire form.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app_control.h"
#include "gio/GPointer.h"

struct Extra {
    bool array = false;
    std::vector<std::string> values;
};
using Extras = std::map<std::string, Extra>;

struct app_control_s {
    std::optional<std::string> appId;
    std::optional<std::string> operation;
    std::optional<std::string> uri;
    Extras extras;
    // Of a received request: who waits for the reply (unique bus name), and under which token; empty when nobody does.
    std::string sender;
    std::string token;
};

namespace appfw {

// A text as `ay` with its terminator, whatever its bytes.
GVariant* toBytes(const std::string& text);
std::string fromBytes(GVariant* bytes);

GVariant* toVariant(const Extras& extras);  // floating a(aybaay)
Extras toExtras(GVariant* list);

// From a Launch's arguments, (ssa(aybaay)s): all but whom it is for and who sent it.
app_control_s toRequest(GVariant* arguments);

struct Reply {
    std::string token;
    app_control_result_e result;
    Extras extras;
};
// From a Reply's arguments, (sia(aybaay)). A result that there is not counts as a failure.
Reply toReply(GVariant* arguments);

}  // namespace appfw
