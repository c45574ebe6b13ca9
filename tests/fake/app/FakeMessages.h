// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bundle.h>

#include <string>
#include <utility>
#include <vector>

struct bundle_keyval_s {
    int type;
    std::string value;
};

struct bundle_s {
    std::vector<std::pair<std::string, bundle_keyval_s>> entries;
};

namespace fake {

void setPortExists(bool exists);
// Delivers a message to the local port that was registered last.
void receiveMessage(bundle* message, const char* remoteAppId, const char* remotePort);
// Calls the event's handlers.
void emitEvent(const std::string& name);
// Bundles that the product created and has not freed.
int openBundles();

}  // namespace fake
