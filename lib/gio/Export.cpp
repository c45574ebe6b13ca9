// SPDX-License-Identifier: Apache-2.0
// Objects that a connection exports.
#include <memory>
#include <stdexcept>

#include "gio/Connection.h"

namespace gio {

namespace {

// The handlers of an exported object. GDBus would free them later, on the context, which never happens if the context's
// thread has ended. Instead, the registration owns them, and a handler that ends its own registration keeps them until
// it returns.
struct Exported : std::enable_shared_from_this<Exported> {
    Exported(Connection::MethodHandler call, Connection::PropertyReader read)
        : onCall(std::move(call)), onRead(std::move(read)) {}
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
    const auto exported = static_cast<Exported*>(data)->shared_from_this();
    handle(exported->onCall, call);
}

GVariant* onGet(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GError** error,
                gpointer data) noexcept {
    try {
        const auto exported = static_cast<Exported*>(data)->shared_from_this();
        return g_variant_ref(exported->onRead(name).get());
    } catch (const std::exception& failure) {
        g_set_error_literal(error, G_DBUS_ERROR, G_DBUS_ERROR_FAILED, failure.what());
        return nullptr;
    }
}

}  // namespace

Registration Connection::exportObject(const std::string& path, const Interface& interface, MethodHandler onCall,
                                      PropertyReader onRead) const {
    if (!mBus) {
        return {};
    }
    static const GDBusInterfaceVTable handlers{onMethod, onGet, nullptr, {}};
    const auto exported = std::make_shared<Exported>(std::move(onCall), std::move(onRead));
    guint id = 0;
    Error error;
    mContext.run([&] {
        id = g_dbus_connection_register_object(mBus.get(), path.c_str(), interface.get(), &handlers, exported.get(),
                                               nullptr, error.out());
    });
    if (id == 0) {
        throw std::runtime_error(path + " cannot be exported: " + error.message());
    }
    return {mContext, [bus = share(), id, exported] { g_dbus_connection_unregister_object(bus.get(), id); }};
}

}  // namespace gio
