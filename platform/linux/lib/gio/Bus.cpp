#include "lib/gio/Bus.h"

#include "dlog.h"
#include "lib/gio/IoThread.h"

namespace gio {

namespace {

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

void forgetHandler(gpointer handler) noexcept {
    delete static_cast<Bus::Handler*>(handler);
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
            dlog_print(DLOG_ERROR, "orvane-bus", "no session bus: %s", error.message().c_str());
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
        g_set_error_literal(error.out(), G_IO_ERROR, G_IO_ERROR_CLOSED, "no session bus");
        return nullptr;
    }
    return Variant(g_dbus_connection_call_sync(mConnection.get(), name, path, interface, method, arguments,
                                               reply ? G_VARIANT_TYPE(reply) : nullptr, flags, milliseconds, nullptr,
                                               error.out()));
}

Variant Bus::ask(const char* method, GVariant* arguments, const char* reply, Error& error) const {
    return call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, arguments, reply,
                error);
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

bool Bus::own(const std::string& name) const {
    constexpr guint32 DO_NOT_QUEUE = 4;
    constexpr guint32 PRIMARY_OWNER = 1;
    constexpr guint32 ALREADY_OWNER = 4;
    Error error;
    const Variant answer = ask("RequestName", g_variant_new("(su)", name.c_str(), DO_NOT_QUEUE), "(u)", error);
    guint32 result = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &result);
    }
    return result == PRIMARY_OWNER || result == ALREADY_OWNER;
}

bool Bus::serve(const char* path, const char* description, Handler handler) const {
    if (!mConnection) {
        return false;
    }
    bool served = false;
    IoThread::get().run([&] {
        Error error;
        const std::unique_ptr<GDBusNodeInfo, NodeUnref> node(g_dbus_node_info_new_for_xml(description, error.out()));
        static const GDBusInterfaceVTable methods{onCall, nullptr, nullptr, {}};
        served =
            node && g_dbus_connection_register_object(mConnection.get(), path, node->interfaces[0], &methods,
                                                      new Handler(std::move(handler)), forgetHandler, error.out()) != 0;
        if (!served) {
            dlog_print(DLOG_ERROR, "orvane-bus", "%s cannot be served: %s", path, error.message().c_str());
        }
    });
    return served;
}

void Bus::flush() const {
    if (isOpen()) {
        Error error;
        g_dbus_connection_flush_sync(mConnection.get(), nullptr, error.out());  // fails only when the bus has gone
    }
}

void Bus::whenLost(std::function<void()> then) const {
    if (mConnection) {
        g_signal_connect_data(mConnection.get(), "closed", G_CALLBACK(onClosed),
                              new std::function<void()>(std::move(then)), forgetThen, GConnectFlags{});
    }
}

}  // namespace gio
