// SPDX-License-Identifier: Apache-2.0
// orvane-sim-app ROLE ID: all simulated applications in one program, which the bus starts.
#include <cstdio>
#include <exception>
#include <map>
#include <memory>
#include <string>

#include "apps/Account.h"
#include "apps/Briefing.h"
#include "apps/MusicPlayer.h"
#include "apps/NetworkManager.h"
#include "apps/RecipeApp.h"
#include "apps/UiApp.h"
#include "apps/Viewer.h"

namespace {

using Make = std::unique_ptr<sim::Application> (*)(const std::string& id);

template <typename Role>
std::unique_ptr<sim::Application> make(const std::string& id) {
    return std::make_unique<Role>(id);
}

const std::map<std::string, Make> kRoles = {
    {"account", make<sim::Account>},   {"app", make<sim::Application>},  {"briefing", make<sim::Briefing>},
    {"music", make<sim::MusicPlayer>}, {"recipe", make<sim::RecipeApp>}, {"ui", make<sim::UiApp>},
    {"viewer", make<sim::Viewer>},
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        fprintf(stderr, "usage: orvane-sim-app account|app|briefing|music|network|recipe|ui|viewer ID\n");
        return 2;
    }
    try {
        if (std::string(arguments[1]) == "network") {
            sim::NetworkManager(arguments[2]).run();
            return 0;
        }
        const auto role = kRoles.find(arguments[1]);
        if (role == kRoles.end()) {
            fprintf(stderr, "orvane-sim-app: unknown role %s\n", arguments[1]);
            return 2;
        }
        role->second(arguments[2])->run();
        return 0;
    } catch (const std::exception& fault) {
        fprintf(stderr, "orvane-sim-app: %s: %s\n", arguments[2], fault.what());
        return 1;
    }
}
