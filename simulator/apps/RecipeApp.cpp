// SPDX-License-Identifier: Apache-2.0
#include "apps/RecipeApp.h"

#include <cstdio>

#include "dbus/Interfaces.h"

namespace sim {

namespace {

constexpr char kVoiceControlId[] = "org.orvane.VoiceControl";

}  // namespace

RecipeApp::RecipeApp(const std::string& id) : Application(id) {
    keep(bus().exportObject("/org/orvane/VoiceClient", dbus::interface("org.orvane.VoiceClient1"),
                            [this](gio::MethodCall& call) { onResult(call); }));
    // Again each time that the service appears on the bus.
    keep(bus().watchName(kVoiceControlId, [this](const std::string& owner) {
        if (!owner.empty()) {
            registerForCommands();
        }
    }));
}

void RecipeApp::onResult(gio::MethodCall& call) {
    const auto [text, json] = call.arguments().fields<std::string, std::string>();
    record().write("voice result", {{"text", text}, {"json", json}});
    call.reply();
}

void RecipeApp::registerForCommands() {
    try {
        bus().call({kVoiceControlId, "/org/orvane/VoiceControl", "org.orvane.VoiceControl1"}, "Register",
                   gio::Variant::tuple(std::vector<std::string>{"Recipe"}));
        record().write("registered");
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s: cannot register for recipe commands: %s\n", id().c_str(), fault.what());
    }
}

}  // namespace sim
