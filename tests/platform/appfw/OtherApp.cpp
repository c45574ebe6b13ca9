// SPDX-License-Identifier: Apache-2.0
#include "OtherApp.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include "gio/IoThread.h"
#include "support/OwnConnection.h"

namespace {

constexpr char PATH[] = "/org/orvane/Application";
constexpr char INTERFACE[] = "org.orvane.Application1";
constexpr char DESCRIPTION[] =
    "<node><interface name='org.orvane.Application1'>"
    "<method name='Launch'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/><arg type='s' direction='in'/></method>"
    "<method name='Reply'><arg type='s' direction='in'/><arg type='i' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/></method></interface></node>";

template <typename T>
T next(std::deque<T>& from, std::mutex& mutex, std::condition_variable& came) {
    std::unique_lock lock(mutex);
    if (!came.wait_for(lock, std::chrono::seconds(20), [&] { return !from.empty(); })) {
        throw std::runtime_error("nothing comes over the bus");
    }
    T first = std::move(from.front());
    from.pop_front();
    return first;
}

}  // namespace

OtherApp::OtherApp(const std::string& id) {
    gio::Error error;
    mBus = ownConnection(getenv("DBUS_SESSION_BUS_ADDRESS"));
    gio::IoThread::get().run([&] {
        static GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(DESCRIPTION, nullptr);
        static const GDBusInterfaceVTable methods{onCall, nullptr, nullptr, {}};
        mObject = g_dbus_connection_register_object(mBus.get(), PATH, node->interfaces[0], &methods, this, nullptr,
                                                    error.out());
    });
    if (!id.empty()) {
        own(id);
    }
}

void OtherApp::own(const std::string& name) const {
    gio::Error error;
    if (!gio::Variant(g_dbus_connection_call_sync(
            mBus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            g_variant_new("(su)", name.c_str(), 4U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.out()))) {
        throw std::runtime_error(error.message());
    }
}

void OtherApp::leave() {
    if (mBus != nullptr) {
        gio::IoThread::get().run([this] { g_dbus_connection_unregister_object(mBus.get(), mObject); });
        g_dbus_connection_close_sync(mBus.get(), nullptr, nullptr);
        mBus.reset();
    }
}

OtherApp::Asked OtherApp::asked() {
    return next(mAsked, mMutex, mCame);
}

OtherApp::Answer OtherApp::answered() {
    return next(mAnswers, mMutex, mCame);
}

bool OtherApp::call(const std::string& name, const char* method, GVariant* arguments) const {
    gio::Error error;
    return gio::Variant(g_dbus_connection_call_sync(mBus.get(), name.c_str(), PATH, INTERFACE, method, arguments,
                                                    nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.out())) !=
           nullptr;
}

bool OtherApp::ask(const std::string& app, const std::string& operation, const Extras& extras,
                   const std::string& token) const {
    return call(app, "Launch",
                g_variant_new("(ss@a(aybaay)s)", operation.c_str(), "", appfw::toVariant(extras), token.c_str()));
}

bool OtherApp::reply(const Asked& to, int result, const Extras& extras) const {
    return call(to.sender, "Reply",
                g_variant_new("(si@a(aybaay))", to.token.c_str(), result, appfw::toVariant(extras)));
}

void OtherApp::announce(const std::string& event) const {
    gio::Error error;
    g_dbus_connection_emit_signal(mBus.get(), nullptr, "/org/orvane/Event", "org.orvane.Event1", "Emitted",
                                  g_variant_new_parsed("(%s, [(b'key', b'value')])", event.c_str()), error.out());
    call("org.freedesktop.DBus", "None", nullptr);
}

bool OtherApp::message(const std::string& app, const std::string& port, const std::string& claimed) const {
    gio::Error error;
    return gio::Variant(g_dbus_connection_call_sync(
               mBus.get(), app.c_str(), "/org/orvane/MessagePort", "org.orvane.MessagePort1", "Send",
               g_variant_new("(s@a(ayay)ss)", port.c_str(), g_variant_new_array(G_VARIANT_TYPE("(ayay)"), nullptr, 0),
                             claimed.c_str(), ""),
               nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.out())) != nullptr;
}

void OtherApp::failCalls(const char* error) const {
    g_dbus_connection_add_filter(
        mBus.get(),
        [](GDBusConnection* bus, GDBusMessage* message, gboolean incoming, gpointer name) noexcept -> GDBusMessage* {
            if (!incoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
                return message;
            }
            const gio::Object<GDBusMessage> call(message);
            const gio::Object<GDBusMessage> answer(
                g_dbus_message_new_method_error_literal(message, static_cast<char*>(name), ""));
            g_dbus_connection_send_message(bus, answer.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
            return nullptr;
        },
        const_cast<char*>(error), nullptr);
}

void OtherApp::onCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                      GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) noexcept {
    static_cast<OtherApp*>(self)->take(sender, method, arguments);
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

void OtherApp::take(const std::string& sender, const std::string& method, GVariant* arguments) {
    const std::lock_guard lock(mMutex);
    const char* first = nullptr;
    GVariant* list = nullptr;
    if (method == "Launch") {
        const char* uri = nullptr;
        const char* token = nullptr;
        g_variant_get(arguments, "(&s&s@a(aybaay)&s)", &first, &uri, &list, &token);
        mAsked.push_back({first, uri, appfw::toExtras(list), sender, token});
    } else {
        int result = 0;
        g_variant_get(arguments, "(&si@a(aybaay))", &first, &result, &list);
        mAnswers.push_back({first, result, appfw::toExtras(list)});
    }
    gio::Variant(list).reset();
    mCame.notify_all();
}
