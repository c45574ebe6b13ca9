// One program for all simulated applications: orvane-sim-app ROLE ID. The bus starts it.
#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "apps/NetworkManager.h"
#include "apps/RecipeApp.h"
#include "apps/UiApp.h"
#include "apps/Viewer.h"

namespace {

std::unique_ptr<sim::Application> make(const std::string& role, const std::string& id) {
    if (role == "ui") {
        return std::make_unique<sim::UiApp>(id);
    }
    if (role == "recipe") {
        return std::make_unique<sim::RecipeApp>(id);
    }
    if (role == "viewer") {
        return std::make_unique<sim::Viewer>(id);
    }
    return role == "app" ? std::make_unique<sim::Application>(id) : nullptr;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        fprintf(stderr, "usage: orvane-sim-app app|ui|recipe|viewer|network ID\n");
        return 2;
    }
    try {
        if (std::string(arguments[1]) == "network") {
            sim::NetworkManager(arguments[2]).run();
            return 0;
        }
        const auto application = make(arguments[1], arguments[2]);
        if (!application) {
            fprintf(stderr, "orvane-sim-app: no role %s\n", arguments[1]);
            return 2;
        }
        application->run();
        return 0;
    } catch (const std::exception& fault) {
        fprintf(stderr, "orvane-sim-app: %s: %s\n", arguments[2], fault.what());
        return 1;
    }
}
