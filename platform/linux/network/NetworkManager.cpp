#include "network/NetworkManager.h"

#include <string>

namespace network {

namespace {

constexpr char NAME[] = "org.freedesktop.NetworkManager";
constexpr char PATH[] = "/org/freedesktop/NetworkManager";
constexpr char PROPERTIES[] = "org.freedesktop.DBus.Properties";
constexpr int TIMEOUT_MS = 1000;
constexpr guint32 CONNECTED_LOCAL = 50;  // NetworkManager's own number; those above are connected further

connection_type_e kindOf(const std::string& type) {
    if (type == "802-11-wireless") {
        return CONNECTION_TYPE_WIFI;
    }
    if (type == "802-3-ethernet") {
        return CONNECTION_TYPE_ETHERNET;
    }
    if (type == "gsm" || type == "cdma" || type == "wwan") {
        return CONNECTION_TYPE_CELLULAR;
    }
    return CONNECTION_TYPE_OTHER;
}

}  // namespace

NetworkManager::NetworkManager(std::function<void()> changed) : mChanged(std::move(changed)) {
    gio::Error error;
    mBus.reset(g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, error.out()));
    if (mBus == nullptr) {
        return;  // no system bus, so nobody manages the network
    }
    g_dbus_connection_set_exit_on_close(mBus.get(), FALSE);
    g_dbus_connection_signal_subscribe(
        mBus.get(), NAME, PROPERTIES, "PropertiesChanged", PATH, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
           gpointer self) noexcept { static_cast<NetworkManager*>(self)->ask(); },
        this, nullptr);
    g_bus_watch_name_on_connection(
        mBus.get(), NAME, G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, gpointer self) noexcept {
            static_cast<NetworkManager*>(self)->ask();
        },
        [](GDBusConnection*, const gchar*, gpointer data) noexcept {
            auto* self = static_cast<NetworkManager*>(data);
            self->mRunning = false;
            self->mChanged();
        },
        this, nullptr);
    ask();
}

void NetworkManager::ask() {
    gio::Error error;
    const gio::Variant answer(g_dbus_connection_call_sync(
        mBus.get(), NAME, PATH, PROPERTIES, "GetAll", g_variant_new("(s)", NAME), G_VARIANT_TYPE("(a{sv})"),
        G_DBUS_CALL_FLAGS_NO_AUTO_START, TIMEOUT_MS, nullptr, error.out()));
    mRunning = answer != nullptr;
    if (mRunning) {
        const gio::Variant properties(g_variant_get_child_value(answer.get(), 0));
        guint32 state = 0;
        const gchar* type = "";
        g_variant_lookup(properties.get(), "State", "u", &state);
        g_variant_lookup(properties.get(), "PrimaryConnectionType", "&s", &type);
        mType = state >= CONNECTED_LOCAL ? kindOf(type) : CONNECTION_TYPE_DISCONNECTED;
    }
    mChanged();
}

}  // namespace network
