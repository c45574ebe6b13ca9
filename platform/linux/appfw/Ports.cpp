// SPDX-License-Identifier: Apache-2.0
#include "Ports.h"

#include "bus/Admission.h"
#include "dbus/Interfaces.h"
#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"

namespace appfw {

namespace {

// Whether the sender owns the application id that it claims. A sender may also claim no id.
bool isItself(const std::string& sender, const std::string& app) {
    return app.empty() || bus::peers().ownerOf(app) == sender;
}

}  // namespace

bool Ports::serve() {
    std::call_once(mServing, [this] {
        mServed = bus::session().exportObject(kPath, dbus::interface(kInterface),
                                              [this](gio::MethodCall& call) { called(call); });
    });
    return bool(mServed);
}

int Ports::add(const std::string& name, message_port_trusted_message_cb callback, void* userData) {
    const std::lock_guard lock(mMutex);
    const int known = find(name);
    const int id = known != 0 ? known : ++mLastId;
    mPorts[id] = {name, callback, userData};
    return id;
}

bool Ports::remove(int id) {
    const std::lock_guard lock(mMutex);
    return mPorts.erase(id) != 0;
}

std::optional<std::string> Ports::nameOf(int id) {
    const auto port = portOf(id);
    return port ? std::make_optional(port->name) : std::nullopt;
}

std::optional<Ports::Port> Ports::portOf(int id) {
    const std::lock_guard lock(mMutex);
    const auto found = mPorts.find(id);
    return found == mPorts.end() ? std::nullopt : std::make_optional(found->second);
}

int Ports::idOf(const std::string& name) {
    const std::lock_guard lock(mMutex);
    return find(name);
}

// Call with the mutex held. Returns 0 if there is no such port.
int Ports::find(const std::string& name) const {
    for (const auto& [id, port] : mPorts) {
        if (port.name == name) {
            return id;
        }
    }
    return 0;
}

void Ports::called(gio::MethodCall& call) {
    if (!bus::admits(call)) {
        return;
    }
    if (call.method() == "HasPort") {
        const auto [port] = call.arguments().fields<std::string>();
        call.reply(gio::Variant::tuple(idOf(port) != 0));
    } else {
        sent(call);
    }
}

void Ports::sent(gio::MethodCall& call) {
    const auto [port, entries, app, remotePort] =
        call.arguments().fields<std::string, Entries, std::string, std::string>();
    if (!isItself(call.sender(), app)) {
        call.fail(kAccessDenied, app);
    } else if (const int id = idOf(port); id != 0) {
        post(id, toBundle(entries), app, remotePort);
        call.reply();
    } else {
        call.fail(kPortNotFound, port);
    }
}

void Ports::post(int id, bundle_s message, const std::string& app, const std::string& remotePort) {
    postToMainLoop(
        [=]() mutable { process::contained("message port callback", [&] { deliver(id, message, app, remotePort); }); });
}

// Drops the message if the port no longer exists.
void Ports::deliver(int id, bundle_s& message, const std::string& app, const std::string& remotePort) {
    if (const auto port = portOf(id)) {
        port->callback(id, app.c_str(), remotePort.empty() ? nullptr : remotePort.c_str(), !remotePort.empty(),
                       &message, port->userData);
    }
}

}  // namespace appfw
