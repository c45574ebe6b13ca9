// SPDX-License-Identifier: Apache-2.0
#include "Clients.h"

#include <algorithm>
#include <mutex>
#include <set>

#include "bus/Admission.h"
#include "bus/SessionBus.h"
#include "dbus/Interfaces.h"
#include "dlog.h"
#include "process/Owner.h"

namespace voice {

namespace {

constexpr char kName[] = "org.orvane.VoiceControl";
constexpr char kPath[] = "/org/orvane/VoiceControl";
constexpr char kClientPath[] = "/org/orvane/VoiceClient";
constexpr char kClientInterface[] = "org.orvane.VoiceClient1";
constexpr int kTimeoutMilliseconds = 1000;

class Registry {
public:
    Registry();
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    std::vector<Client> clientsFor(const std::string& agent) const;

private:
    struct Registration {
        Client client;
        std::set<std::string> agents;
        gio::Registration watch;
    };

    void serve();
    void remember(const std::string& name, std::set<std::string> agents);
    void ownerChanged(const std::string& name, const std::string& owner);

    const gio::Connection& mBus = bus::session();
    gio::Peers& mPeers = bus::peers();
    mutable std::mutex mMutex;
    std::vector<Registration> mRegistrations;
    gio::Registration mObject;
    gio::OwnedName mName;
};

// Ends the watches without the mutex, because their handlers take it.
Registry::~Registry() {
    mObject.reset();
    std::vector<Registration> ending;
    const std::lock_guard lock(mMutex);
    ending.swap(mRegistrations);
}

Registry::Registry() {
    if (!mBus.isOpen()) {
        dlog_print(DLOG_WARN, "orvane-voice", "no session bus, so no clients");
        return;
    }
    try {
        serve();
    } catch (const gio::CallError& error) {
        dlog_print(DLOG_WARN, "orvane-voice", "no clients: cannot acquire the name %s: %s", kName, error.what());
    }
}

// Acquires the name last, because an application that waits for it may register immediately.
void Registry::serve() {
    mObject = mBus.exportObject(kPath, dbus::interface(kName + std::string("1")), [this](gio::MethodCall& call) {
        if (!bus::admits(call)) {
            return;
        }
        const auto [domains] = call.arguments().fields<std::vector<std::string>>();
        remember(call.sender(), std::set<std::string>(domains.begin(), domains.end()));
        call.reply();
    });
    mName = mBus.ownName(kName);
    if (!mName) {
        dlog_print(DLOG_WARN, "orvane-voice", "no clients: another process owns the name %s", kName);
    }
}

// IO thread only. A second registration of the same caller replaces the first.
void Registry::remember(const std::string& name, std::set<std::string> agents) {
    const int pid = mPeers.processOf(name).value_or(0);
    const std::lock_guard lock(mMutex);
    for (Registration& known : mRegistrations) {
        if (known.client.busName == name) {
            known.agents = std::move(agents);
            return;
        }
    }
    auto watch = mBus.watchName(name, [this, name](const std::string& owner) { ownerChanged(name, owner); });
    mRegistrations.push_back({{name, pid}, std::move(agents), std::move(watch)});
}

// IO thread only.
void Registry::ownerChanged(const std::string& name, const std::string& owner) {
    if (!owner.empty()) {
        return;
    }
    const std::lock_guard lock(mMutex);
    const auto gone = std::find_if(mRegistrations.begin(), mRegistrations.end(),
                                   [&](const Registration& known) { return known.client.busName == name; });
    if (gone != mRegistrations.end()) {
        mRegistrations.erase(gone);
    }
}

std::vector<Client> Registry::clientsFor(const std::string& agent) const {
    const std::lock_guard lock(mMutex);
    std::vector<Client> clients;
    for (const Registration& registration : mRegistrations) {
        if (registration.agents.count(agent) != 0) {
            clients.push_back(registration.client);
        }
    }
    return clients;
}

}  // namespace

void serveClients() {
    process::shared<Registry>();
}

std::vector<Client> clientsFor(const std::string& agent) {
    return process::shared<Registry>().clientsFor(agent);
}

void deliverResult(const Client& client, const std::string& text, const std::string& json) {
    bus::session().callAsync({client.busName, kClientPath, kClientInterface}, "Result", gio::Variant::tuple(text, json),
                             {kTimeoutMilliseconds}, nullptr);
}

}  // namespace voice
