// SPDX-License-Identifier: Apache-2.0
// A recipe application: takes the service's recipe results and records them.
#pragma once

#include "lib/Application.h"

namespace sim {

class RecipeApp : public Application {
public:
    explicit RecipeApp(const std::string& id);

private:
    // The service may come, go and come back; each time it comes, the application registers anew.
    static void onVoiceControlThere(GDBusConnection*, const gchar*, const gchar* owner, gpointer self) noexcept;
};

}  // namespace sim
