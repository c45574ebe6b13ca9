// SPDX-License-Identifier: Apache-2.0
#include "Clients.h"

#include <algorithm>
#include <mutex>
#include <set>

#include "dbus/Interfaces.h"
#include "dlog.h"
#include "gio/SessionBus.h"

namespace voice {

namespace {

constexpr char kName[] = "org.orvane.VoiceControl";
constexpr char kPath[] = "/org/orvane/VoiceControl";
constexpr char kClientPath[] = "/org/orvane/VoiceClient";
constexpr char kClientInterface[] = "org.orvane.VoiceClient1";
constexpr int kTimeoutMilliseconds = 1000;
struct Registration {
    Client client;
    std::set<std::string> agents;
    gio::Registration watch;
};

std::mutex mutex;

// With the mutex held. Never destroyed: the IO thread still serves while the process ends.
std::vector<Registration>& registrations() {
    static auto* instance = new std::vector<Registration>;
    return *instance;
}

void ownerChanged(const std::string& name, const std::string& owner) {
    if (!owner.empty()) {
        return;
    }
    std::lock_guard lock(mutex);
    const auto gone = std::find_if(registrations().begin(), registrations().end(),
                                   [&](const Registration& r) { return r.client.busName == name; });
    if (gone != registrations().end()) {
        registrations().erase(gone);
    }
}

// On the IO thread. A second registration of the same caller replaces the first.
void remember(const std::string& name, std::set<std::string> agents) {
    const int pid = gio::sessionPeers().processOf(name).value_or(0);
    std::lock_guard lock(mutex);
    for (Registration& known : registrations()) {
        if (known.client.busName == name) {
            known.agents = std::move(agents);
            return;
        }
    }
    auto watch = gio::sessionBus().watchName(name, [name](const std::string& owner) { ownerChanged(name, owner); });
    registrations().push_back({{name, pid}, std::move(agents), std::move(watch)});
}

void onRegister(gio::MethodCall& call) {
    const auto [domains] = call.arguments().fields<std::vector<std::string>>();
    remember(call.sender(), std::set<std::string>(domains.begin(), domains.end()));
    call.reply();
}

// The name comes last, because an application that waits for it may register at once. Neither ends before the process.
void startServing() {
    const gio::Connection& bus = gio::sessionBus();
    if (!bus.isOpen()) {
        dlog_print(DLOG_WARN, "orvane-voice", "no session bus, so no clients");
        return;
    }
    std::string whyNot = "another process has it";
    static auto* const object = new gio::Registration;
    static auto* const name = new gio::OwnedName;
    try {
        *object = bus.exportObject(kPath, dbus::interface(kName + std::string("1")), onRegister);
        *name = bus.ownName(kName);
    } catch (const gio::CallError& error) {
        whyNot = error.what();
    }
    if (!*name) {
        dlog_print(DLOG_WARN, "orvane-voice", "no clients, as the name %s cannot be had: %s", kName, whyNot.c_str());
    }
}

}  // namespace

void serveClients() {
    static std::once_flag once;
    std::call_once(once, startServing);
}

std::vector<Client> clientsFor(const std::string& agent) {
    std::lock_guard lock(mutex);
    std::vector<Client> clients;
    for (const Registration& registration : registrations()) {
        if (registration.agents.count(agent) != 0) {
            clients.push_back(registration.client);
        }
    }
    return clients;
}

void deliverResult(const Client& client, const std::string& text, const std::string& json) {
    gio::sessionBus().callAsync({client.busName, kClientPath, kClientInterface}, "Result",
                                gio::Variant::tuple(text, json), {kTimeoutMilliseconds}, nullptr);
}

}  // namespace voice
