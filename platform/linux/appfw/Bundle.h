// SPDX-License-Identifier: Apache-2.0
// What a bundle is, and how it travels: a(ayay).
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
    std::vector<std::pair<std::string, bundle_keyval_s>> entries;  // in the order of their arrival
    std::unordered_map<std::string, std::size_t> places;           // of each key among them
};

namespace appfw {

using Entries = std::vector<std::tuple<gio::Bytes, gio::Bytes>>;

Entries toEntries(const bundle_s& bundle);
bundle_s toBundle(const Entries& entries);

}  // namespace appfw
