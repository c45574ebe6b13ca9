// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <app_control.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

// The platform's request. Tests create received requests on the stack.
struct app_control_s {
    std::optional<std::string> appId;
    std::optional<std::string> operation;
    std::optional<std::string> uri;
    std::map<std::string, std::string> extras;
    std::map<std::string, std::vector<std::string>> arrays;

    std::string text() const;  // "app operation uri key=value key=[a,b]", absent fields as "-"
};

namespace fake {

struct Launch {
    app_control_s request;
    app_control_reply_cb callback;
    void* userData;
};

// The requests that were sent, in order.
std::vector<Launch> launches();
std::vector<std::string> launchTexts();
// Handles that the product created and has not destroyed.
size_t openAppControls();
bool waitForLaunches(size_t count);

}  // namespace fake
