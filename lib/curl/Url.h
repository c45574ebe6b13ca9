// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace curl {

// The address without a slash at its end. Throws std::invalid_argument unless it is http or https with a host and
// neither user name, query nor fragment.
std::string baseOf(const std::string& address);
bool isSecure(const std::string& url);
// The host is this machine.
bool isLoopback(const std::string& url);
// One part of a path, whatever the text holds.
std::string escaped(const std::string& text);

}  // namespace curl
