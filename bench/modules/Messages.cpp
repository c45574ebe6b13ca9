// SPDX-License-Identifier: Apache-2.0
// Messages between the ports of two processes: the round trip from main loop to main loop, and how long the sender
// waits until a message is accepted, compared with a D-Bus call whose receiver only replies.
#include <message_port.h>

#include <functional>
#include <memory>
#include <stdexcept>

#include "appfw/Bundle.h"
#include "bus/SessionBus.h"
#include "dbus/Interfaces.h"
#include "modules/MainLoop.h"
#include "modules/Measures.h"

namespace bench {

namespace {

constexpr char kHere[] = "org.orvane.bench.here";
constexpr char kThere[] = "org.orvane.bench.there";
constexpr char kPort[] = "bench";
constexpr char kPlainPath[] = "/org/orvane/bench";
constexpr char kInterface[] = "org.orvane.MessagePort1";
constexpr int kMessages = 1000;
constexpr int kWarmUpMessages = 50;  // not counted: these open connections and fill caches

using Message = std::unique_ptr<bundle, std::function<void(bundle*)>>;

Message makeMessage() {
    Message message(bundle_create(), [](bundle* old) { bundle_free(old); });
    bundle_add_str(message.get(), "operation", "partialText");
    bundle_add_str(message.get(), "key_partial_result", "show me the recipe for");
    bundle_add_str(message.get(), "key_is_final_result", "False");
    return message;
}

// Sends to the port of the application `to`. The reply arrives at this process's port of the same name.
void send(const char* to, bundle* message, int port) {
    if (message_port_send_trusted_message_with_local_port(to, kPort, message, port) != MESSAGE_PORT_ERROR_NONE) {
        throw std::runtime_error("a message cannot be sent");
    }
}

int openPort(const char* application, message_port_trusted_message_cb callback, void* data) {
    const int port = message_port_register_trusted_local_port(kPort, callback, data);
    static const gio::OwnedName name = bus::session().ownName(application);  // until the process ends
    if (port <= 0 || !name) {
        throw std::runtime_error(std::string("no message port for ") + application);
    }
    return port;
}

struct Rounds {
    Figures& figures;
    Message message;
    double sent;
    int left;
    bool failed;
};

// Makes the D-Bus call of a message, but to an object that only replies.
void callPlainly(bundle& message) {
    bus::session().call({kThere, kPlainPath, kInterface}, "Send",
                        gio::Variant::tuple(kPort, appfw::toEntries(message), kHere, kPort));
}

void go(Rounds& rounds, int port) noexcept {
    try {
        const double before = sim::monotonicNow();
        callPlainly(*rounds.message);
        rounds.sent = sim::monotonicNow();
        send(kThere, rounds.message.get(), port);
        if (rounds.left <= kMessages) {
            rounds.figures.add("plain call us", 1e6 * (rounds.sent - before));
            rounds.figures.add("message accepted us", 1e6 * (sim::monotonicNow() - rounds.sent));
        }
    } catch (const std::exception&) {
        rounds.failed = true;
        MainLoop::quit();
    }
}

void onAnswer(int port, const char*, const char*, bool, bundle*, void* data) noexcept {
    auto& rounds = *static_cast<Rounds*>(data);
    if (rounds.left <= kMessages) {
        rounds.figures.add("message round trip us", 1e6 * (sim::monotonicNow() - rounds.sent));
    }
    if (--rounds.left == 0) {
        MainLoop::quit();
    } else {
        go(rounds, port);
    }
}

void onMessage(int port, const char*, const char*, bool, bundle* message, void*) noexcept {
    message_port_send_trusted_message_with_local_port(kHere, kPort, message, port);
}

}  // namespace

int sendBack() {
    MainLoop loop;
    const auto plain = bus::session().exportObject(kPlainPath, dbus::interface(kInterface),
                                                   [](gio::MethodCall& call) { call.reply(); });
    openPort(kThere, onMessage, nullptr);
    loop.run("the benchmark ends this process");
    return 0;
}

void measureMessages(sim::Appliance& appliance, Figures& figures) {
    MainLoop loop;
    Rounds rounds{figures, makeMessage(), 0, kMessages + kWarmUpMessages, false};
    const int port = openPort(kHere, onAnswer, &rounds);
    const sim::Process other({"/proc/self/exe", kSendBack}, appliance.folder() / "bench.log");
    sim::until("the other process has its port", [&] { return appliance.runs(kThere); });
    go(rounds, port);
    loop.run("every message is answered");
    message_port_unregister_trusted_local_port(port);
    if (rounds.failed) {
        throw std::runtime_error("a message cannot be sent");
    }
}

}  // namespace bench
