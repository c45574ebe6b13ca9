// SPDX-License-Identifier: Apache-2.0
#include "gio/Connection.h"

#include <stdexcept>
#include <utility>

namespace gio {

namespace {

constexpr auto CLIENT = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

using Opened = std::function<void(Object<GDBusConnection> bus, const std::string& failure)>;

void onOpened(GObject*, GAsyncResult* result, gpointer data) noexcept {
    const std::unique_ptr<Opened> opened(static_cast<Opened*>(data));
    Error error;
    Object<GDBusConnection> bus(g_dbus_connection_new_for_address_finish(result, error.out()));
    (*opened)(std::move(bus), error.message());
}

void onClosedSignal(GDBusConnection*, gboolean, GError*, gpointer handler) noexcept {
    (*static_cast<std::function<void()>*>(handler))();
}

void destroyHandler(gpointer handler, GClosure*) noexcept {
    delete static_cast<std::function<void()>*>(handler);
}

}  // namespace

Connection::Connection(Object<GDBusConnection> bus, Context context, bool isPrivate)
    : mBus(std::move(bus)), mContext(std::move(context)), mIsPrivate(isPrivate) {
    g_dbus_connection_set_exit_on_close(mBus.get(), FALSE);
}

Connection& Connection::operator=(Connection&& other) noexcept {
    std::swap(mBus, other.mBus);
    std::swap(mContext, other.mContext);
    std::swap(mIsPrivate, other.mIsPrivate);
    std::swap(mWhyNot, other.mWhyNot);
    return *this;
}

Connection Connection::open(const std::string& address, const Context& context) {
    Object<GDBusConnection> bus;
    Error error;
    context.run([&] {
        bus.reset(g_dbus_connection_new_for_address_sync(address.c_str(), CLIENT, nullptr, nullptr, error.out()));
    });
    if (!bus) {
        throw std::runtime_error("cannot connect to the message bus at \"" + address + "\": " + error.message());
    }
    return Connection(std::move(bus), context, true);
}

Connection Connection::openShared(GBusType type, const Context& context) {
    Object<GDBusConnection> bus;
    Error error;
    context.run([&] { bus.reset(g_bus_get_sync(type, nullptr, error.out())); });
    if (!bus) {
        throw std::runtime_error(error.message());
    }
    return Connection(std::move(bus), context, false);
}

void Connection::openAsync(const std::string& address, const Context& context, unsigned milliseconds,
                           std::function<void(Connection)> then) {
    context.post([=] {
        const std::shared_ptr<GCancellable> late(g_cancellable_new(), ObjectUnref());
        auto opened = [context, then](Object<GDBusConnection> bus, const std::string& failure) {
            then(bus ? Connection(std::move(bus), context, true) : Connection(failure));
        };
        g_dbus_connection_new_for_address(address.c_str(), CLIENT, nullptr, late.get(), onOpened, new Opened(opened));
        context.postAfter(milliseconds, [late] { g_cancellable_cancel(late.get()); });
    });
}

std::string Connection::uniqueName() const {
    const char* name = mBus ? g_dbus_connection_get_unique_name(mBus.get()) : nullptr;
    return name ? name : "";
}

Registration Connection::onClosed(std::function<void()> handler) const {
    if (!mBus) {
        return {};
    }
    const auto id = g_signal_connect_data(mBus.get(), "closed", G_CALLBACK(onClosedSignal),
                                          new std::function<void()>(std::move(handler)), destroyHandler, {});
    return {mContext, [bus = share(), id] { g_signal_handler_disconnect(bus.get(), id); }};
}

std::shared_ptr<GDBusConnection> Connection::share() const {
    return {static_cast<GDBusConnection*>(g_object_ref(mBus.get())), ObjectUnref()};
}

void Connection::flush() const {
    if (isOpen()) {
        Error error;
        g_dbus_connection_flush_sync(mBus.get(), nullptr, error.out());  // fails only if the connection is lost
    }
}

void Connection::close() {
    if (mIsPrivate && isOpen()) {
        Error error;
        g_dbus_connection_close_sync(mBus.get(), nullptr, error.out());  // fails only if it is already closed
    }
}

}  // namespace gio
