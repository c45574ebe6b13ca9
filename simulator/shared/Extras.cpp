// SPDX-License-Identifier: Apache-2.0
#include "shared/Extras.h"

namespace sim {

WireExtras toWire(const Extras& extras) {
    WireExtras wire;
    for (const auto& [key, values] : extras) {
        std::vector<gio::Bytes> list;
        for (const std::string& value : values) {
            list.push_back({value});
        }
        wire.emplace_back(gio::Bytes{key}, values.size() != 1, std::move(list));
    }
    return wire;
}

WireEntries toWire(const Entries& entries) {
    WireEntries wire;
    for (const auto& [key, value] : entries) {
        wire.emplace_back(gio::Bytes{key}, gio::Bytes{value});
    }
    return wire;
}

Extras fromWire(const WireExtras& wire) {
    Extras extras;
    for (const auto& [key, isArray, values] : wire) {
        std::vector<std::string>& list = extras[key.text];
        for (const gio::Bytes& value : values) {
            list.push_back(value.text);
        }
    }
    return extras;
}

Entries fromWire(const WireEntries& wire) {
    Entries entries;
    for (const auto& [key, value] : wire) {
        entries[key.text] = value.text;
    }
    return entries;
}

}  // namespace sim
