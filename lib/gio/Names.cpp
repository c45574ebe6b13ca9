// SPDX-License-Identifier: Apache-2.0
// Bus names: finding the owner, acquiring a name, and watching for owner changes.
#include "gio/Connection.h"

namespace gio {

namespace {

using OwnerHandler = Connection::OwnerHandler;

constexpr std::uint32_t DO_NOT_QUEUE = 4;
constexpr std::uint32_t PRIMARY_OWNER = 1;
constexpr std::uint32_t ALREADY_OWNER = 4;
constexpr int RELEASE_MS = 5000;

void onAppeared(GDBusConnection*, const gchar*, const gchar* owner, gpointer handler) noexcept {
    (*static_cast<OwnerHandler*>(handler))(owner);
}

void onVanished(GDBusConnection*, const gchar*, gpointer handler) noexcept {
    (*static_cast<OwnerHandler*>(handler))("");
}

void destroyHandler(gpointer handler) noexcept {
    delete static_cast<OwnerHandler*>(handler);
}

}  // namespace

std::string Connection::ownerOf(const std::string& name) const {
    try {
        return std::get<0>(call(messageBus(), "GetNameOwner", Variant::tuple(name)).fields<std::string>());
    } catch (const CallError&) {
        return "";  // no owner, or no bus
    }
}

OwnedName Connection::ownName(const std::string& name) const {
    const auto [result] = call(messageBus(), "RequestName", Variant::tuple(name, DO_NOT_QUEUE)).fields<std::uint32_t>();
    if (result != PRIMARY_OWNER && result != ALREADY_OWNER) {
        return {};
    }
    return {Object<GDBusConnection>(static_cast<GDBusConnection*>(g_object_ref(mBus.get()))), name};
}

void OwnedName::releaseName() {
    if (const auto bus = std::move(mBus)) {
        Error error;
        // Fails only if the connection is lost.
        const Target target = messageBus();
        Variant(g_dbus_connection_call_sync(bus.get(), target.name.c_str(), target.path.c_str(),
                                            target.interface.c_str(), "ReleaseName", Variant::tuple(mName).get(),
                                            nullptr, G_DBUS_CALL_FLAGS_NONE, RELEASE_MS, nullptr, error.out()));
    }
}

Registration Connection::watchName(const std::string& name, OwnerHandler handler) const {
    if (!mBus) {
        return {};
    }
    guint id = 0;
    mContext.run([&] {
        id = g_bus_watch_name_on_connection(mBus.get(), name.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE, onAppeared,
                                            onVanished, new OwnerHandler(std::move(handler)), destroyHandler);
    });
    return {mContext, [id] { g_bus_unwatch_name(id); }};
}

}  // namespace gio
