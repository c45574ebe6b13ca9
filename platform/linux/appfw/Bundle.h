// SPDX-License-Identifier: Apache-2.0
// A bundle and its D-Bus form, a(ayay).
#pragma once

#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "bundle.h"
#include "gio/Variant.h"

struct bundle_keyval_s {
    std::string value;
};

struct bundle_s {
    std::vector<std::pair<std::string, bundle_keyval_s>> entries;  // in insertion order
    std::unordered_map<std::string, std::size_t> places;           // the index of each key
};

namespace appfw {

using Entries = std::vector<std::tuple<gio::Bytes, gio::Bytes>>;

Entries toEntries(const bundle_s& bundle);
bundle_s toBundle(const Entries& entries);

}  // namespace appfw
