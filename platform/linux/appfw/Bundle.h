// SPDX-License-Identifier: Apache-2.0
// What a bundle is, and how it travels: a(ayay).
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "bundle.h"
#include "gio/GPointer.h"

struct bundle_keyval_s {
    std::string value;
};

struct bundle_s {
    std::vector<std::pair<std::string, bundle_keyval_s>> entries;  // in the order of their arrival
    std::unordered_map<std::string, std::size_t> places;           // of each key among them
};

namespace appfw {

GVariant* toVariant(const bundle_s& bundle);  // floating
bundle_s toBundle(GVariant* list);

}  // namespace appfw
