// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <string>

namespace gio {

// The address of the session or system bus; empty when none is known.
std::string addressOf(GBusType type);
// A well-known or unique name.
bool isBusName(const std::string& text);
bool isUtf8(const std::string& text);

}  // namespace gio
