// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <string>

namespace gio {

// The address of the session or system bus; empty if it is unknown.
std::string addressOf(GBusType type);
// Whether the text is a valid well-known or unique name.
bool isBusName(const std::string& text);
bool isUtf8(const std::string& text);

}  // namespace gio
