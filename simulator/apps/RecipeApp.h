// SPDX-License-Identifier: Apache-2.0
// A recipe application. It registers for recipe commands and records them.
#pragma once

#include "shared/Application.h"

namespace sim {

class RecipeApp : public Application {
public:
    explicit RecipeApp(const std::string& id);

private:
    void onResult(gio::MethodCall& call);
    void registerForCommands();
};

}  // namespace sim
