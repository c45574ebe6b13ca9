// SPDX-License-Identifier: Apache-2.0
#include "NetworkManager.h"

#include <utility>

#include "gio/IoThread.h"

namespace network {

namespace {

constexpr char NAME[] = "org.freedesktop.NetworkManager";
constexpr char PATH[] = "/org/freedesktop/NetworkManager";
constexpr char PROPERTIES[] = "org.freedesktop.DBus.Properties";
constexpr char BUS[] = "org.freedesktop.DBus";
constexpr int TIMEOUT_MS = 1000;
constexpr unsigned RETRY_MS = 2000;
constexpr guint32 CONNECTED_LOCAL = 50;  // NetworkManager's own number: without a way out; those above have one

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
    connect();
}

// A connection of its own: the one that GIO shares stays the lost one while anybody keeps it.
void NetworkManager::connect() {
    gio::Error error;
    const gio::Text address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SYSTEM, nullptr, error.out()));
    constexpr int FLAGS =
        G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION;
    g_dbus_connection_new_for_address(
        address ? address.get() : "", static_cast<GDBusConnectionFlags>(FLAGS), nullptr, nullptr,
        [](GObject*, GAsyncResult* result, gpointer self) noexcept {
            gio::Error failure;
            static_cast<NetworkManager*>(self)->connected(
                gio::Object<GDBusConnection>(g_dbus_connection_new_for_address_finish(result, failure.out())));
        },
        this);
}

void NetworkManager::connected(gio::Object<GDBusConnection> bus) {
    mBus = std::move(bus);
    if (mBus == nullptr || g_dbus_connection_is_closed(mBus.get())) {
        return lost();
    }
    g_signal_connect(mBus.get(), "closed", G_CALLBACK(+[](GDBusConnection*, gboolean, GError*, gpointer self) noexcept {
                         static_cast<NetworkManager*>(self)->lost();
                     }),
                     this);
    hear(NAME, "PropertiesChanged", PATH, PROPERTIES, nullptr);
    hear(BUS, "NameOwnerChanged", "/org/freedesktop/DBus", BUS, NAME);
    ask();
}

// Without a system bus nobody manages the network.
void NetworkManager::lost() {
    mBus.reset();
    gio::IoThread::get().postAfter(RETRY_MS, [this] { connect(); });
    become(State::Absent);
}

// Whatever is heard is only a hint to ask.
void NetworkManager::hear(const char* sender, const char* signal, const char* path, const char* interface,
                          const char* about) {
    g_dbus_connection_signal_subscribe(
        mBus.get(), sender, interface, signal, path, about, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
           gpointer self) noexcept { static_cast<NetworkManager*>(self)->ask(); },
        this, nullptr);
}

// However many hints come while a question is under way, one more follows.
void NetworkManager::ask() {
    mAskAgain = mAsking;
    if (mAsking || mBus == nullptr) {
        return;
    }
    mAsking = true;
    g_dbus_connection_call(
        mBus.get(), NAME, PATH, PROPERTIES, "GetAll", g_variant_new("(s)", NAME), G_VARIANT_TYPE("(a{sv})"),
        G_DBUS_CALL_FLAGS_NO_AUTO_START, TIMEOUT_MS, nullptr,
        [](GObject* bus, GAsyncResult* result, gpointer self) noexcept {
            gio::Error error;
            const gio::Variant answer(
                g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, error.out()));
            static_cast<NetworkManager*>(self)->answered(
                answer.get(), g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_TIMED_OUT));
        },
        this);
}

void NetworkManager::answered(GVariant* answer, bool late) {
    mAsking = false;
    if (answer != nullptr) {
        const gio::Variant properties(g_variant_get_child_value(answer, 0));
        guint32 state = 0;
        const gchar* type = "";
        g_variant_lookup(properties.get(), "State", "u", &state);
        g_variant_lookup(properties.get(), "PrimaryConnectionType", "&s", &type);
        mType = state > CONNECTED_LOCAL ? kindOf(type) : CONNECTION_TYPE_DISCONNECTED;
    }
    if (mAskAgain) {
        ask();
    } else if (late) {
        gio::IoThread::get().postAfter(RETRY_MS, [this] { ask(); });
    }
    become(answer != nullptr ? State::Running : State::Absent);
}

void NetworkManager::become(State state) {
    const bool stays = std::exchange(mState, state) == state && state == State::Absent;
    if (!stays) {
        mChanged();
    }
}

}  // namespace network
