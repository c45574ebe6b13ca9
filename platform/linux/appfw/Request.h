// SPDX-License-Identifier: Apache-2.0
// What an app_control_h is, and how it travels. docs/dbus.md has the wire form.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "app_control.h"
#include "gio/Variant.h"

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
    // Of a received request: the unique bus name of its sender, and the token of the reply; empty when none is wanted.
    std::string sender;
    std::string token;
};

namespace appfw {

// a(aybaay): key, is an array, values.
using WireExtras = std::vector<std::tuple<gio::Bytes, bool, std::vector<gio::Bytes>>>;
WireExtras toWire(const Extras& extras);
Extras toExtras(const WireExtras& wire);

// From the arguments of Launch: all but the receiver and the sender. Throws std::runtime_error for other arguments.
app_control_s toRequest(const gio::Variant& arguments);

struct Reply {
    std::string token;
    app_control_result_e result;
    Extras extras;
};
// From the arguments of Reply. An unknown result counts as a failure. Throws std::runtime_error for other arguments.
Reply toReply(const gio::Variant& arguments);

}  // namespace appfw
