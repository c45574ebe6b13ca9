// SPDX-License-Identifier: Apache-2.0
// Settings store, network connection, device, and platform directories.
#pragma once

#include <net_connection.h>

#include <string>

namespace fake {

// Store a value without a notification.
void setSetting(const std::string& key, int value);
void setSetting(const std::string& key, const std::string& value);
// Store a value and notify the key's subscribers on the calling thread, as the product's own writes do.
void changeSetting(const std::string& key, int value);
void changeSetting(const std::string& key, bool value);
void changeSetting(const std::string& key, double value);
void changeSetting(const std::string& key, const std::string& value);
// Notifies the subscribers of a value of an unknown type.
void changeSettingToUnknownType(const std::string& key);
int setting(const std::string& key);  // -1 if missing

void setConnection(connection_type_e type);
// Sets the type and notifies the subscriber.
void changeConnection(connection_type_e type);

}  // namespace fake
