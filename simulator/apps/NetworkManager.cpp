// SPDX-License-Identifier: Apache-2.0
#include "apps/NetworkManager.h"

#include <stdexcept>

#include "lib/Control.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/freedesktop/NetworkManager";
constexpr char kInterface[] = "org.freedesktop.NetworkManager";
constexpr char kXml[] =
    "<interface name='org.freedesktop.NetworkManager'>"
    "<property name='State' type='u' access='read'/><property name='Connectivity' type='u' access='read'/>"
    "<property name='PrimaryConnectionType' type='s' access='read'/>"
    "<property name='PrimaryConnection' type='o' access='read'/>"
    "<property name='Metered' type='u' access='read'/>"
    "<signal name='StateChanged'><arg type='u'/></signal></interface>";
constexpr guint32 kConnected = 70;
constexpr guint32 kDisconnected = 20;

}  // namespace

NetworkManager::NetworkManager(const std::string& name) : mName(name), mBus(G_BUS_TYPE_SYSTEM) {
    mBus.serve(
        kPath, kXml, [](const std::string&, const std::string&, GVariant*) -> GVariant* { return nullptr; }, false,
        [this](const std::string& wanted) { return property(wanted); });
    serveControl(mBus, [this](const std::string& action, const std::string& kind) {
        if (action != "network") {
            throw std::runtime_error(mName + " does not know the action " + action);
        }
        change(kind);
    });
}

void NetworkManager::run() {
    mBus.own(mName);
    const Pointer<GMainLoop> loop(g_main_loop_new(nullptr, FALSE));
    g_main_loop_run(loop.get());
}

void NetworkManager::change(const std::string& kind) {
    if (kind != "ethernet" && kind != "wifi" && kind != "none") {
        throw std::runtime_error("unknown kind of network: " + kind);
    }
    mKind = kind;
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE("a{sv}"));
    for (const char* name : {"State", "Connectivity", "PrimaryConnectionType", "PrimaryConnection"}) {
        g_variant_builder_add(&changed, "{sv}", name, property(name));
    }
    mBus.emit(kPath, "org.freedesktop.DBus.Properties", "PropertiesChanged",
              g_variant_new("(sa{sv}@as)", kInterface, &changed, g_variant_new_strv(nullptr, 0)));
    mBus.emit(kPath, kInterface, "StateChanged", g_variant_new("(u)", mKind == "none" ? kDisconnected : kConnected));
}

GVariant* NetworkManager::property(const std::string& name) const {
    const bool on = mKind != "none";
    if (name == "State") {
        return g_variant_new_uint32(on ? kConnected : kDisconnected);
    }
    if (name == "Connectivity") {
        return g_variant_new_uint32(on ? 4 : 1);
    }
    if (name == "PrimaryConnectionType") {
        return g_variant_new_string(!on ? "" : mKind == "wifi" ? "802-11-wireless" : "802-3-ethernet");
    }
    if (name == "PrimaryConnection") {
        return g_variant_new_object_path(on ? "/org/freedesktop/NetworkManager/ActiveConnection/1" : "/");
    }
    return g_variant_new_uint32(0);
}

}  // namespace sim
