// SPDX-License-Identifier: Apache-2.0
#include "shared/Application.h"

#include <glib-unix.h>
#include <signal.h>

#include <stdexcept>

#include "dbus/Interfaces.h"
#include "shared/Control.h"

namespace sim {

namespace {

gboolean onSignal(gpointer application) noexcept {
    static_cast<Application*>(application)->quit();
    return G_SOURCE_CONTINUE;
}

}  // namespace

Application::Application(const std::string& id) : mId(id), mRecord(id) {
    keep(mBus.exportObject(kApplicationPath, dbus::interface(kApplicationInterface),
                           [this](gio::MethodCall& call) { onApplicationCall(call); }));
    keep(mBus.exportObject(kPortPath, dbus::interface(kPortInterface),
                           [this](gio::MethodCall& call) { onPortCall(call); }));
    keep(exportControl(
        mBus, [this](const std::string& action, const std::string& argument) { onControl(action, argument); }));
    keep(mBus.onClosed([this] { quit(); }));
}

void Application::run() {
    g_unix_signal_add(SIGTERM, onSignal, this);
    g_unix_signal_add(SIGINT, onSignal, this);
    const gio::OwnedName name = mBus.ownName(mId);
    if (!name) {
        throw std::runtime_error(mId + " is already running");
    }
    mRecord.write("started");
    mLoop.run();
    mRecord.write("ended");
    // The reply to Close may still be in the queue.
    mBus.flush();
}

void Application::reply(const Request& request, int result, const Extras& extras) {
    if (!request.token.empty()) {
        sendReply(mBus, request, result, extras);
    }
}

void Application::sendEvent(const std::string& event, const Entries& data) {
    mBus.emitSignal("/org/orvane/Event", "org.orvane.Event1", "Emitted", gio::Variant::tuple(event, toWire(data)));
}

void Application::onControl(const std::string& action, const std::string&) {
    throw std::runtime_error(mId + " does not know the action " + action);
}

void Application::onApplicationCall(gio::MethodCall& call) {
    if (call.method() == "Close") {
        mRecord.write("closed");
        quit();
    } else if (call.method() == "Reply") {
        mRecord.write("reply");
    } else {
        const auto [operation, uri, extras, token] =
            call.arguments().fields<std::string, std::string, WireExtras, std::string>();
        const Request request{operation, uri, fromWire(extras), token, call.sender()};
        mRecord.write("launch", {{"operation", operation}, {"uri", uri}, {"extras", request.extras}});
        onLaunch(request);
    }
    call.reply();
}

void Application::onPortCall(gio::MethodCall& call) {
    if (call.method() == "HasPort") {
        const auto [port] = call.arguments().fields<std::string>();
        call.reply(gio::Variant::tuple(hasPort(port)));
        return;
    }
    const auto [port, entries, senderId, senderPort] =
        call.arguments().fields<std::string, WireEntries, std::string, std::string>();
    if (!hasPort(port)) {
        call.fail("org.orvane.Error.PortNotFound", mId + " has no port " + port);
        return;
    }
    onMessage(port, fromWire(entries));
    call.reply();
}

}  // namespace sim
