// SPDX-License-Identifier: Apache-2.0
#include "gio/Bus.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "gio/IoThread.h"

namespace gio {

namespace {

constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";

struct NodeUnref {
    void operator()(GDBusNodeInfo* node) const noexcept { g_dbus_node_info_unref(node); }
};

void onCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method, GVariant* arguments,
            GDBusMethodInvocation* invocation, gpointer handler) noexcept {
    (*static_cast<Bus::Handler*>(handler))(sender, method, arguments, invocation);
}

void onClosed(GDBusConnection*, gboolean, GError*, gpointer then) noexcept {
    (*static_cast<std::function<void()>*>(then))();
}

void forgetThen(gpointer then, GClosure*) noexcept {
    delete static_cast<std::function<void()>*>(then);
}

template <typename T>
void forget(gpointer data) noexcept {
    delete static_cast<T*>(data);
}

GVariant* onRead(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GError**,
                 gpointer property) noexcept {
    return (*static_cast<Bus::Property*>(property))(name);
}

void onAnswer(GObject* bus, GAsyncResult* result, gpointer data) noexcept {
    const std::unique_ptr<Bus::Answer> then(static_cast<Bus::Answer*>(data));
    Error error;
    Variant answer(g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, error.out()));
    (*then)(std::move(answer), error.message());
}

using Signal = std::function<void(GVariant*)>;

void onSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
              gpointer handler) noexcept {
    (*static_cast<Signal*>(handler))(arguments);
}

}  // namespace

Bus& Bus::session() {
    // Never destroyed: other threads still call while the process ends.
    static Bus* instance = new Bus;
    return *instance;
}

Bus::Bus() {
    // On the IO thread, which so serves the connection's signals.
    IoThread::get().run([this] {
        Error error;
        mConnection.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.out()));
        if (!mConnection) {
            mWhyNot = "there is no session bus: " + error.message();
            return;
        }
        g_dbus_connection_set_exit_on_close(mConnection.get(), FALSE);
    });
}

bool Bus::isOpen() const {
    return mConnection && !g_dbus_connection_is_closed(mConnection.get());
}

Variant Bus::call(const char* name, const char* path, const char* interface, const char* method, GVariant* arguments,
                  const char* reply, Error& error, int milliseconds, GDBusCallFlags flags) const {
    if (!mConnection) {
        if (arguments != nullptr) {
            sink(arguments);
        }
        g_set_error_literal(error.out(), G_IO_ERROR, G_IO_ERROR_CLOSED, mWhyNot.c_str());
        return nullptr;
    }
    return Variant(g_dbus_connection_call_sync(mConnection.get(), name, path, interface, method, arguments,
                                               reply ? G_VARIANT_TYPE(reply) : nullptr, flags, milliseconds, nullptr,
                                               error.out()));
}

Variant Bus::ask(const char* method, GVariant* arguments, const char* reply, Error& error) const {
    return call(kBus, kBusPath, kBus, method, arguments, reply, error);
}

std::string Bus::ownerOf(const std::string& name) const {
    Error error;
    const Variant answer = ask("GetNameOwner", g_variant_new("(s)", name.c_str()), "(s)", error);
    const char* owner = "";
    if (answer) {
        g_variant_get(answer.get(), "(&s)", &owner);
    }
    return owner;
}

bool Bus::hasOwner(const std::string& name) const {
    return !ownerOf(name).empty();
}

bool Bus::own(const std::string& name, Error& error) const {
    constexpr guint32 DO_NOT_QUEUE = 4;
    constexpr guint32 PRIMARY_OWNER = 1;
    constexpr guint32 ALREADY_OWNER = 4;
    const Variant answer = ask("RequestName", g_variant_new("(su)", name.c_str(), DO_NOT_QUEUE), "(u)", error);
    guint32 result = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &result);
    }
    return result == PRIMARY_OWNER || result == ALREADY_OWNER;
}

void Bus::giveUp(const std::string& name) const {
    Error error;
    ask("ReleaseName", g_variant_new("(s)", name.c_str()), "(u)", error);  // fails only when the bus has gone
}

void Bus::askThen(const char* method, GVariant* arguments, const char* reply, int milliseconds, Answer then) const {
    g_dbus_connection_call(mConnection.get(), kBus, kBusPath, kBus, method, arguments, G_VARIANT_TYPE(reply),
                           G_DBUS_CALL_FLAGS_NONE, milliseconds, nullptr, onAnswer, new Answer(std::move(then)));
}

void Bus::hear(const char* signal, const std::string& name, Signal handler) const {
    if (mConnection) {
        IoThread::get().run([&] {
            g_dbus_connection_signal_subscribe(mConnection.get(), kBus, kBus, signal, kBusPath, name.c_str(),
                                               G_DBUS_SIGNAL_FLAGS_NONE, onSignal, new Signal(std::move(handler)),
                                               forget<Signal>);
        });
    }
}

bool Bus::serve(const char* path, const char* description, Handler handler) const {
    static const GDBusInterfaceVTable entries{onCall, nullptr, nullptr, {}};
    return serveObject(path, description, entries, new Handler(std::move(handler)), forget<Handler>);
}

bool Bus::show(const char* path, const char* description, Property property) const {
    static const GDBusInterfaceVTable entries{nullptr, onRead, nullptr, {}};
    return serveObject(path, description, entries, new Property(std::move(property)), forget<Property>);
}

bool Bus::serveObject(const char* path, const char* description, const GDBusInterfaceVTable& entries, void* data,
                      GDestroyNotify forgetData) const {
    if (!mConnection) {
        forgetData(data);
        return false;
    }
    IoThread::get().run([&] {
        Error error;
        const std::unique_ptr<GDBusNodeInfo, NodeUnref> node(g_dbus_node_info_new_for_xml(description, error.out()));
        if (!node || g_dbus_connection_register_object(mConnection.get(), path, node->interfaces[0], &entries, data,
                                                       forgetData, error.out()) == 0) {
            throw std::runtime_error(std::string(path) + " cannot be exported: " + error.message());
        }
    });
    return true;
}

void Bus::flush() const {
    if (isOpen()) {
        Error error;
        g_dbus_connection_flush_sync(mConnection.get(), nullptr, error.out());  // fails only when the bus has gone
    }
}

bool saysNobodyThere(const Error& error) {
    constexpr GDBusError KINDS[] = {G_DBUS_ERROR_SERVICE_UNKNOWN, G_DBUS_ERROR_NAME_HAS_NO_OWNER,
                                    G_DBUS_ERROR_UNKNOWN_METHOD, G_DBUS_ERROR_UNKNOWN_OBJECT,
                                    G_DBUS_ERROR_UNKNOWN_INTERFACE};
    return std::any_of(std::begin(KINDS), std::end(KINDS),
                       [&](GDBusError kind) { return g_error_matches(error.get(), G_DBUS_ERROR, kind); });
}

void Bus::whenLost(std::function<void()> then) const {
    if (mConnection) {
        IoThread::get().run([&] {
            g_signal_connect_data(mConnection.get(), "closed", G_CALLBACK(onClosed),
                                  new std::function<void()>(std::move(then)), forgetThen, GConnectFlags{});
        });
    }
}

}  // namespace gio
