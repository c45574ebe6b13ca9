// SPDX-License-Identifier: Apache-2.0
#include "apps/RecipeApp.h"

#include <cstdio>

namespace sim {

namespace {

constexpr char kVoiceControlId[] = "org.orvane.VoiceControl";
constexpr char kClientXml[] =
    "<interface name='org.orvane.VoiceClient1'><method name='Result'>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface>";

}  // namespace

RecipeApp::RecipeApp(const std::string& id) : Application(id) {
    bus().serve("/org/orvane/VoiceClient", kClientXml,
                [this](const std::string&, const std::string&, GVariant* arguments) -> GVariant* {
                    const char* text = nullptr;
                    const char* json = nullptr;
                    g_variant_get(arguments, "(&s&s)", &text, &json);
                    record().write("voice result", {{"text", text}, {"json", json}});
                    return nullptr;
                });
    g_bus_watch_name_on_connection(bus().get(), kVoiceControlId, G_BUS_NAME_WATCHER_FLAGS_NONE, onVoiceControlThere,
                                   nullptr, this, nullptr);
}

void RecipeApp::onVoiceControlThere(GDBusConnection*, const gchar*, const gchar*, gpointer data) noexcept {
    auto& self = *static_cast<RecipeApp*>(data);
    try {
        const char* const domains[] = {"Recipe", nullptr};
        self.bus().call(kVoiceControlId, "/org/orvane/VoiceControl", "org.orvane.VoiceControl1", "Register",
                        g_variant_new("(^as)", domains));
        self.record().write("registered");
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s: cannot register for recipe commands: %s\n", self.id().c_str(), fault.what());
    }
}

}  // namespace sim
