// SPDX-License-Identifier: Apache-2.0
// Trusted message ports. The IO thread receives messages and checks their senders; callbacks run on the main loop.
#include "message_port.h"

#include <unistd.h>

#include <map>
#include <mutex>
#include <stdexcept>
#include <string>

#include "AppId.h"
#include "Bundle.h"
#include "dbus/Interfaces.h"
#include "gio/Address.h"
#include "gio/SessionBus.h"
#include "mainloop/MainLoopPost.h"

namespace {

constexpr char PATH[] = "/org/orvane/MessagePort";
constexpr char INTERFACE[] = "org.orvane.MessagePort1";
constexpr char PORT_NOT_FOUND[] = "org.orvane.Error.PortNotFound";
constexpr char ACCESS_DENIED[] = "org.freedesktop.DBus.Error.AccessDenied";

struct Port {
    std::string name;
    message_port_trusted_message_cb callback;
    void* userData;
};

std::mutex mutex;
int lastId = 0;

// Call with the mutex held. Never destroyed: other threads still send and receive while the process exits.
std::map<int, Port>& ports() {
    static auto* instance = new std::map<int, Port>;
    return *instance;
}

// Call with the mutex held. 0 if the port does not exist.
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

void deliver(int id, bundle_s message, const std::string& app, const std::string& remotePort) {
    postToMainLoop([=]() mutable {
        Port port;
        {
            std::lock_guard lock(mutex);
            const auto found = ports().find(id);
            if (found == ports().end()) {
                return;  // unregistered in the meantime
            }
            port = found->second;
        }
        port.callback(id, app.c_str(), remotePort.empty() ? nullptr : remotePort.c_str(), !remotePort.empty(), &message,
                      port.userData);
    });
}

// Whether the sender owns the application id that it claims. It may also claim none.
bool isItself(const std::string& sender, const std::string& app) {
    return app.empty() || gio::sessionPeers().ownerOf(app) == sender;
}

void onSend(gio::MethodCall& call) {
    const auto [port, entries, app, remotePort] =
        call.arguments().fields<std::string, appfw::Entries, std::string, std::string>();
    if (!isItself(call.sender(), app)) {
        call.fail(ACCESS_DENIED, app);
    } else if (const int id = idOf(port); id != 0) {
        deliver(id, appfw::toBundle(entries), app, remotePort);
        call.reply();
    } else {
        call.fail(PORT_NOT_FOUND, port);
    }
}

void onCall(gio::MethodCall& call) {
    if (gio::sessionPeers().userOf(call.sender()) != getuid()) {
        call.fail(ACCESS_DENIED, "message ports accept calls only from their own user");
    } else if (call.method() == "HasPort") {
        const auto [port] = call.arguments().fields<std::string>();
        call.reply(gio::Variant::tuple(idOf(port) != 0));
    } else {
        onSend(call);
    }
}

// Never destroyed: the ports stay available until the process exits.
bool servePorts() {
    static const auto* const served =
        new gio::Registration(gio::sessionBus().exportObject(PATH, dbus::interface(INTERFACE), onCall));
    return bool(*served);
}

int failureOf(const gio::CallError& error) {
    if (error.name() == ACCESS_DENIED) {
        return MESSAGE_PORT_ERROR_CERTIFICATE_NOT_MATCH;
    }
    return error.name() == PORT_NOT_FOUND || error.hasNoReceiver() ? MESSAGE_PORT_ERROR_PORT_NOT_FOUND
                                                                   : MESSAGE_PORT_ERROR_IO_ERROR;
}

// Throws gio::CallError. Does not start the application if it is not running.
gio::Variant callPort(const char* app, const char* method, const gio::Variant& arguments) {
    return gio::sessionBus().call({app, PATH, INTERFACE}, method, arguments, {5000, false});
}

bool isName(const char* app, const char* port) {
    return app != nullptr && port != nullptr && gio::isBusName(app) && gio::isUtf8(port);
}

int send(const char* app, const char* port, bundle* message, const std::string& localPort) {
    if (!isName(app, port) || message == nullptr) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    try {
        callPort(app, "Send", gio::Variant::tuple(port, appfw::toEntries(*message), appfw::ownAppId(), localPort));
        return MESSAGE_PORT_ERROR_NONE;
    } catch (const gio::CallError& error) {
        return failureOf(error);
    }
}

}  // namespace

int message_port_check_trusted_remote_port(const char* remote_app_id, const char* remote_port, bool* exist) {
    if (!isName(remote_app_id, remote_port) || exist == nullptr) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    try {
        *exist = std::get<0>(callPort(remote_app_id, "HasPort", gio::Variant::tuple(remote_port)).fields<bool>());
        return MESSAGE_PORT_ERROR_NONE;
    } catch (const gio::CallError& error) {
        return failureOf(error);
    } catch (const std::runtime_error&) {
        return MESSAGE_PORT_ERROR_IO_ERROR;  // a reply of another type
    }
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
        !gio::isUtf8(trusted_local_port)) {
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
