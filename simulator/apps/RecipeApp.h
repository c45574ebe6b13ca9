// SPDX-License-Identifier: Apache-2.0
// A recipe application. It registers for recipe commands and records them.
#pragma once

#include "lib/Application.h"

namespace sim {

class RecipeApp : public Application {
public:
    explicit RecipeApp(const std::string& id);

private:
    // Registers again each time that the service appears on the bus.
    static void onVoiceControlThere(GDBusConnection*, const gchar*, const gchar* owner, gpointer self) noexcept;
};

}  // namespace sim
