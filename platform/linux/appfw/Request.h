// SPDX-License-Identifier: Apache-2.0
// The object behind an app_control_h, and its D-Bus form, which docs/dbus.md describes.
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
    // For a received request: the sender's unique bus name, and the reply token, which is empty if the sender wants no
    // reply.
    std::string sender;
    std::string token;
};

namespace appfw {

// a(aybaay): key, is an array, values.
using WireExtras = std::vector<std::tuple<gio::Bytes, bool, std::vector<gio::Bytes>>>;
WireExtras toWire(const Extras& extras);
Extras toExtras(const WireExtras& wire);

// Reads the arguments of Launch, except the receiver and the sender. Throws std::runtime_error if they are invalid.
app_control_s toRequest(const gio::Variant& arguments);

struct Reply {
    std::string token;
    app_control_result_e result;
    Extras extras;
};
// Reads the arguments of Reply. An unknown result counts as a failure. Throws std::runtime_error if they are invalid.
Reply toReply(const gio::Variant& arguments);

}  // namespace appfw
