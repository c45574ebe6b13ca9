// SPDX-License-Identifier: Apache-2.0
// Extras of requests and entries of messages, and their types on the bus.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "gio/Variant.h"

namespace sim {

// A single value is a list of one.
using Extras = std::map<std::string, std::vector<std::string>>;
using Entries = std::map<std::string, std::string>;

// Each is the key, whether it is an array, and the values.
using WireExtras = std::vector<std::tuple<gio::Bytes, bool, std::vector<gio::Bytes>>>;
using WireEntries = std::vector<std::tuple<gio::Bytes, gio::Bytes>>;

WireExtras toWire(const Extras& extras);
WireEntries toWire(const Entries& entries);
Extras fromWire(const WireExtras& extras);
Entries fromWire(const WireEntries& entries);

}  // namespace sim
