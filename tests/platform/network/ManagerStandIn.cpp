// SPDX-License-Identifier: Apache-2.0
#include "ManagerStandIn.h"

#include "support/OwnConnection.h"

namespace {

constexpr char PATH[] = "/org/freedesktop/NetworkManager";
constexpr char PROPERTIES[] = "org.freedesktop.DBus.Properties";
constexpr char DESCRIPTION[] =
    "<node><interface name='org.freedesktop.DBus.Properties'><method name='GetAll'>"
    "<arg type='s' direction='in'/><arg type='a{sv}' direction='out'/></method></interface></node>";

}  // namespace

ManagerStandIn::ManagerStandIn(const std::string& busAddress)
    : mContext(g_main_context_new()), mLoop(g_main_loop_new(mContext, FALSE)) {
    gio::Error error;
    mBus = ownConnection(busAddress);
    // Calls come on the context that is the thread's own while the object is registered.
    g_main_context_push_thread_default(mContext);
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(DESCRIPTION, nullptr);
    static const GDBusInterfaceVTable methods{onCall, nullptr, nullptr, {}};
    g_dbus_connection_register_object(mBus.get(), PATH, node->interfaces[0], &methods, this, nullptr, error.out());
    g_dbus_node_info_unref(node);
    g_main_context_pop_thread_default(mContext);
    if (error) {
        throw std::runtime_error(error.message());
    }
    mThread = std::thread([this] { g_main_loop_run(mLoop); });
}

ManagerStandIn::~ManagerStandIn() {
    GSource* quit = g_idle_source_new();
    g_source_set_callback(
        quit,
        [](gpointer loop) noexcept -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
            return G_SOURCE_REMOVE;
        },
        mLoop, nullptr);
    g_source_attach(quit, mContext);
    g_source_unref(quit);
    mThread.join();
    g_dbus_connection_close_sync(mBus.get(), nullptr, nullptr);
    g_main_loop_unref(mLoop);
    g_main_context_unref(mContext);
}

void ManagerStandIn::become(guint32 state, const std::string& type) {
    std::lock_guard<std::mutex> lock(mMutex);
    mState = state;
    mType = type;
    g_dbus_connection_emit_signal(mBus.get(), nullptr, PATH, PROPERTIES, "PropertiesChanged",
                                  g_variant_new("(s@a{sv}as)", NAME, properties(), nullptr), nullptr);
}

void ManagerStandIn::freeze(bool frozen) {
    std::lock_guard<std::mutex> lock(mMutex);
    mFrozen = frozen;
}

int ManagerStandIn::unanswered() {
    std::lock_guard<std::mutex> lock(mMutex);
    return mUnanswered;
}

void ManagerStandIn::askBus(const char* method, GVariant* arguments) {
    gio::Error error;
    const gio::Variant answer(g_dbus_connection_call_sync(mBus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                          "org.freedesktop.DBus", method, arguments, nullptr,
                                                          G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.out()));
    if (answer == nullptr) {
        throw std::runtime_error(error.message());
    }
}

GVariant* ManagerStandIn::properties() {
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&builder, "{sv}", "State", g_variant_new_uint32(mState));
    g_variant_builder_add(&builder, "{sv}", "PrimaryConnectionType", g_variant_new_string(mType.c_str()));
    return g_variant_builder_end(&builder);
}

void ManagerStandIn::onCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
                            GDBusMethodInvocation* invocation, gpointer data) noexcept {
    auto* self = static_cast<ManagerStandIn*>(data);
    std::lock_guard<std::mutex> lock(self->mMutex);
    if (self->mFrozen) {
        g_object_unref(invocation);
        ++self->mUnanswered;
        return;
    }
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(@a{sv})", self->properties()));
}
