// SPDX-License-Identifier: Apache-2.0
// Objects that a connection exports.
#include <stdexcept>

#include "gio/Connection.h"

namespace gio {

namespace {

struct Exported {
    Connection::MethodHandler onCall;
    Connection::PropertyReader onRead;
};

void handle(const Connection::MethodHandler& onCall, MethodCall& call) {
    try {
        onCall(call);
    } catch (const std::exception& failure) {
        if (!call.isAnswered()) {
            call.fail("org.freedesktop.DBus.Error.Failed", failure.what());
        }
    }
}

void onMethod(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
              GDBusMethodInvocation* invocation, gpointer data) noexcept {
    MethodCall call(invocation);
    handle(static_cast<Exported*>(data)->onCall, call);
}

GVariant* onGet(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GError** error,
                gpointer data) noexcept {
    try {
        return g_variant_ref(static_cast<Exported*>(data)->onRead(name).get());
    } catch (const std::exception& failure) {
        g_set_error_literal(error, G_DBUS_ERROR, G_DBUS_ERROR_FAILED, failure.what());
        return nullptr;
    }
}

void destroyExported(gpointer data) noexcept {
    delete static_cast<Exported*>(data);
}

}  // namespace

Registration Connection::exportObject(const std::string& path, const Interface& interface, MethodHandler onCall,
                                      PropertyReader onRead) const {
    if (!mBus) {
        return {};
    }
    static const GDBusInterfaceVTable handlers{onMethod, onGet, nullptr, {}};
    guint id = 0;
    Error error;
    mContext.run([&] {
        id = g_dbus_connection_register_object(mBus.get(), path.c_str(), interface.get(), &handlers,
                                               new Exported{std::move(onCall), std::move(onRead)}, destroyExported,
                                               error.out());
    });
    if (id == 0) {
        throw std::runtime_error(path + " cannot be exported: " + error.message());
    }
    return {mContext, [bus = share(), id] { g_dbus_connection_unregister_object(bus.get(), id); }};
}

}  // namespace gio
