// SPDX-License-Identifier: Apache-2.0
#include "lib/Application.h"

#include <glib-unix.h>
#include <signal.h>

#include <stdexcept>

#include "lib/Control.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/orvane/Application";
constexpr char kApplicationXml[] =
    "<interface name='org.orvane.Application1'>"
    "<method name='Launch'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/><arg type='s' direction='in'/></method>"
    "<method name='Reply'><arg type='s' direction='in'/><arg type='i' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/></method>"
    "<method name='Close'/></interface>";
constexpr char kPortXml[] =
    "<interface name='org.orvane.MessagePort1'>"
    "<method name='HasPort'><arg type='s' direction='in'/><arg type='b' direction='out'/></method>"
    "<method name='Send'><arg type='s' direction='in'/><arg type='a(ayay)' direction='in'/>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface>";

gboolean onSignal(gpointer loop) noexcept {
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_CONTINUE;
}

Pointer<GVariant> child(GVariant* arguments, gsize index) {
    return Pointer<GVariant>(g_variant_get_child_value(arguments, index));
}

std::string text(GVariant* arguments, gsize index) {
    return g_variant_get_string(child(arguments, index).get(), nullptr);
}

}  // namespace

Application::Application(const std::string& id)
    : mId(id), mRecord(id), mBus(G_BUS_TYPE_SESSION), mLoop(g_main_loop_new(nullptr, FALSE)) {
    mBus.serve(kPath, kApplicationXml,
               [this](const std::string& method, const std::string& sender, GVariant* arguments) {
                   return onApplicationCall(method, sender, arguments);
               });
    mBus.serve("/org/orvane/MessagePort", kPortXml,
               [this](const std::string& method, const std::string&, GVariant* arguments) {
                   return onPortCall(method, arguments);
               });
    serveControl(mBus, [this](const std::string& action, const std::string& argument) { onControl(action, argument); });
}

void Application::run() {
    g_unix_signal_add(SIGTERM, onSignal, mLoop.get());
    g_unix_signal_add(SIGINT, onSignal, mLoop.get());
    mBus.own(mId);
    mRecord.write("started");
    g_main_loop_run(mLoop.get());
    mRecord.write("ended");
    // The reply to Close may still be in the queue.
    g_dbus_connection_flush_sync(mBus.get(), nullptr, nullptr);
}

void Application::reply(const Request& request, int result, const Extras& extras) {
    if (!request.token.empty()) {
        sendReply(mBus, request, result, extras);
    }
}

void Application::sendEvent(const std::string& event, const Entries& data) {
    mBus.emit("/org/orvane/Event", "org.orvane.Event1", "Emitted",
              g_variant_new("(s@a(ayay))", event.c_str(), packEntries(data)));
}

void Application::onControl(const std::string& action, const std::string&) {
    throw std::runtime_error(mId + " does not know the action " + action);
}

GVariant* Application::onApplicationCall(const std::string& method, const std::string& sender, GVariant* arguments) {
    if (method == "Close") {
        mRecord.write("closed");
        quit();
    } else if (method == "Reply") {
        mRecord.write("reply", {{"token", text(arguments, 0)}});
    } else {
        const Request request{text(arguments, 0), text(arguments, 1), unpackExtras(child(arguments, 2).get()),
                              text(arguments, 3), sender};
        mRecord.write("launch", {{"operation", request.operation}, {"uri", request.uri}, {"extras", request.extras}});
        onLaunch(request);
    }
    return nullptr;
}

GVariant* Application::onPortCall(const std::string& method, GVariant* arguments) {
    const std::string port = text(arguments, 0);
    if (method == "HasPort") {
        return g_variant_new("(b)", hasPort(port));
    }
    if (!hasPort(port)) {
        throw std::invalid_argument(mId + " has no port " + port);
    }
    onMessage(port, unpackEntries(child(arguments, 1).get()));
    return nullptr;
}

}  // namespace sim
