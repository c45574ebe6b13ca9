// SPDX-License-Identifier: Apache-2.0
// The appliance's settings, with keys such as "db/mic_key/status". All functions block until the settings service has
// answered and throw std::runtime_error.
#pragma once

#include <string>

namespace sim::settings {

void set(const std::string& key, int value);
void set(const std::string& key, bool value);
void set(const std::string& key, const std::string& value);
void set(const std::string& key, const char* value);
// These throw as well when the key is missing or has another type.
int getInt(const std::string& key);
bool getBool(const std::string& key);

}  // namespace sim::settings
