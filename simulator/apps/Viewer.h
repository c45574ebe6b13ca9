// SPDX-License-Identifier: Apache-2.0
// A web browser that records the addresses that it opens (org.freedesktop.Application).
#pragma once

#include "shared/Application.h"

namespace sim {

class Viewer : public Application {
public:
    explicit Viewer(const std::string& id);

private:
    void onDesktopCall(gio::MethodCall& call);
};

}  // namespace sim
