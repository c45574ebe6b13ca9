// SPDX-License-Identifier: Apache-2.0
// The browser: takes addresses as a desktop application does and records them.
#pragma once

#include "lib/Application.h"

namespace sim {

class Viewer : public Application {
public:
    explicit Viewer(const std::string& id);
};

}  // namespace sim
