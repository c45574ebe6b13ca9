// SPDX-License-Identifier: Apache-2.0
// The appliance's settings: keys as in "db/mic_key/status". Writes return when the store has them.
#pragma once

#include <string>

namespace sim::settings {

// Throw std::runtime_error; a key that is missing or of another type is a fault too.
void set(const std::string& key, int value);
void set(const std::string& key, bool value);
void set(const std::string& key, const std::string& value);
void set(const std::string& key, const char* value);
int getInt(const std::string& key);

}  // namespace sim::settings
