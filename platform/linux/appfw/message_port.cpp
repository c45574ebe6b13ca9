// SPDX-License-Identifier: Apache-2.0
// Trusted message ports. Messages arrive on the IO thread, where the bus is asked who sends; callbacks run on the main
// loop.
#include "message_port.h"

#include <unistd.h>

#include <cstring>
#include <map>
#include <mutex>
#include <string>

#include "AppId.h"
#include "Bundle.h"
#include "gio/Bus.h"
#include "mainloop/MainLoopPost.h"

namespace {

using gio::Bus;

constexpr char PATH[] = "/org/orvane/MessagePort";
constexpr char INTERFACE[] = "org.orvane.MessagePort1";
constexpr char PORT_NOT_FOUND[] = "org.orvane.Error.PortNotFound";
constexpr char DESCRIPTION[] =
    "<node><interface name='org.orvane.MessagePort1'>"
    "<method name='HasPort'><arg type='s' direction='in'/><arg type='b' direction='out'/></method>"
    "<method name='Send'><arg type='s' direction='in'/><arg type='a(ayay)' direction='in'/>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface></node>";

struct Port {
    std::string name;
    message_port_trusted_message_cb callback;
    void* userData;
};

std::mutex mutex;
int lastId = 0;

// With the mutex held. Never destroyed: other threads still send and hear while the process ends.
std::map<int, Port>& ports() {
    static auto* instance = new std::map<int, Port>;
    return *instance;
}

// With the mutex held; 0 without such a port.
int find(const std::string& name) {
    for (const auto& [id, port] : ports()) {
        if (port.name == name) {
            return id;
        }
    }
    return 0;
}

int idOf(const std::string& name) {
    std::lock_guard lock(mutex);
    return find(name);
}

bool isSameUser(const char* sender) {
    gio::Error error;
    const gio::Variant answer = Bus::session().ask("GetConnectionUnixUser", g_variant_new("(s)", sender), "(u)", error);
    guint32 user = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &user);
    }
    return answer && user == getuid();
}

void deliver(int id, bundle_s message, const std::string& app, const std::string& remotePort) {
    postToMainLoop([=]() mutable {
        Port port;
        {
            std::lock_guard lock(mutex);
            const auto found = ports().find(id);
            if (found == ports().end()) {
                return;  // unregistered meanwhile
            }
            port = found->second;
        }
        port.callback(id, app.c_str(), remotePort.empty() ? nullptr : remotePort.c_str(), !remotePort.empty(), &message,
                      port.userData);
    });
}

// The application that a sender says it is, as events are believed only of who has the name; it may have none.
bool isItself(const char* sender, const std::string& app) {
    return app.empty() || Bus::session().ownerOf(app) == sender;
}

void onSend(const char* sender, GVariant* arguments, GDBusMethodInvocation* invocation) {
    const char* port = nullptr;
    const char* app = nullptr;
    const char* remotePort = nullptr;
    GVariant* list = nullptr;
    g_variant_get(arguments, "(&s@a(ayay)&s&s)", &port, &list, &app, &remotePort);
    const gio::Variant entries(list);
    if (!isItself(sender, app)) {
        g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.AccessDenied", app);
    } else if (const int id = idOf(port); id != 0) {
        deliver(id, appfw::toBundle(entries.get()), app, remotePort);
        g_dbus_method_invocation_return_value(invocation, nullptr);
    } else {
        g_dbus_method_invocation_return_dbus_error(invocation, PORT_NOT_FOUND, port);
    }
}

void onCall(const char* sender, const char* method, GVariant* arguments, GDBusMethodInvocation* invocation) {
    if (!isSameUser(sender)) {
        g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.AccessDenied",
                                                   "ports answer only their own user");
    } else if (strcmp(method, "HasPort") == 0) {
        const char* port = nullptr;
        g_variant_get(arguments, "(&s)", &port);
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", idOf(port) != 0));
    } else {
        onSend(sender, arguments, invocation);
    }
}

bool servePorts() {
    static const bool served = Bus::session().serve(PATH, DESCRIPTION, onCall);
    return served;
}

int failureOf(const gio::Error& error) {
    const gio::Text name(error ? g_dbus_error_get_remote_error(error.get()) : nullptr);
    const std::string text = name ? name.get() : "";
    if (text == "org.freedesktop.DBus.Error.AccessDenied") {
        return MESSAGE_PORT_ERROR_CERTIFICATE_NOT_MATCH;
    }
    return text == PORT_NOT_FOUND || gio::saysNobodyThere(error) ? MESSAGE_PORT_ERROR_PORT_NOT_FOUND
                                                                 : MESSAGE_PORT_ERROR_IO_ERROR;
}

bool isName(const char* app, const char* port) {
    return app != nullptr && port != nullptr && g_dbus_is_name(app) && g_utf8_validate(port, -1, nullptr);
}

int send(const char* app, const char* port, bundle* message, const std::string& localPort) {
    if (!isName(app, port) || message == nullptr) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    gio::Error error;
    return Bus::session().call(app, PATH, INTERFACE, "Send",
                               g_variant_new("(s@a(ayay)ss)", port, appfw::toVariant(*message),
                                             appfw::ownAppId().c_str(), localPort.c_str()),
                               nullptr, error, 5000, G_DBUS_CALL_FLAGS_NO_AUTO_START)
               ? MESSAGE_PORT_ERROR_NONE
               : failureOf(error);
}

}  // namespace

int message_port_check_trusted_remote_port(const char* remote_app_id, const char* remote_port, bool* exist) {
    if (!isName(remote_app_id, remote_port) || exist == nullptr) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    gio::Error error;
    const gio::Variant answer =
        Bus::session().call(remote_app_id, PATH, INTERFACE, "HasPort", g_variant_new("(s)", remote_port), "(b)", error,
                            5000, G_DBUS_CALL_FLAGS_NO_AUTO_START);
    if (!answer) {
        return failureOf(error);
    }
    gboolean found = FALSE;
    g_variant_get(answer.get(), "(b)", &found);
    *exist = found != FALSE;
    return MESSAGE_PORT_ERROR_NONE;
}

int message_port_send_trusted_message(const char* remote_app_id, const char* remote_port, bundle* message) {
    return send(remote_app_id, remote_port, message, "");
}

int message_port_send_trusted_message_with_local_port(const char* remote_app_id, const char* remote_port,
                                                      bundle* message, int trusted_local_port_id) {
    std::unique_lock lock(mutex);
    const auto found = ports().find(trusted_local_port_id);
    if (found == ports().end()) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    const std::string name = found->second.name;
    lock.unlock();
    return send(remote_app_id, remote_port, message, name);
}

int message_port_register_trusted_local_port(const char* trusted_local_port, message_port_trusted_message_cb callback,
                                             void* user_data) {
    if (trusted_local_port == nullptr || *trusted_local_port == 0 || callback == nullptr ||
        !g_utf8_validate(trusted_local_port, -1, nullptr)) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    if (!servePorts()) {
        return MESSAGE_PORT_ERROR_IO_ERROR;
    }
    std::lock_guard lock(mutex);
    const int known = find(trusted_local_port);
    const int id = known != 0 ? known : ++lastId;
    ports()[id] = {trusted_local_port, callback, user_data};
    return id;
}

int message_port_unregister_trusted_local_port(int trusted_local_port_id) {
    std::lock_guard lock(mutex);
    return ports().erase(trusted_local_port_id) != 0 ? MESSAGE_PORT_ERROR_NONE : MESSAGE_PORT_ERROR_PORT_NOT_FOUND;
}
