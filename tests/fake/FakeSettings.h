// SPDX-License-Identifier: Apache-2.0
// Settings store, network connection and device.
#pragma once

#include <net_connection.h>

#include <string>

namespace fake {

// Put a value into the store, without telling anybody.
void setSetting(const std::string& key, int value);
void setSetting(const std::string& key, const std::string& value);
// Put a value into the store and tell the subscribers of the key, on the calling thread. The product's writes do too.
void changeSetting(const std::string& key, int value);
void changeSetting(const std::string& key, bool value);
void changeSetting(const std::string& key, double value);
void changeSetting(const std::string& key, const std::string& value);
// Tell the subscribers of a value of a type that the store does not know.
void changeSettingToUnknownType(const std::string& key);
int setting(const std::string& key);  // -1 when missing

void setConnection(connection_type_e type);
// Sets the type and tells the subscriber.
void changeConnection(connection_type_e type);

}  // namespace fake
