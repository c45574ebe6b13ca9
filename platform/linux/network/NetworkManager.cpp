// SPDX-License-Identifier: Apache-2.0
#include "NetworkManager.h"

#include <map>
#include <string>
#include <utility>

#include "gio/Address.h"
#include "process/Guard.h"

namespace network {

namespace {

constexpr char NAME[] = "org.freedesktop.NetworkManager";
constexpr int TIMEOUT_MS = 1000;
constexpr unsigned RETRY_MS = 2000;
constexpr std::uint32_t CONNECTED_LOCAL = 50;  // NetworkManager's state without internet access; higher states have it

gio::Target properties() {
    return {NAME, "/org/freedesktop/NetworkManager", "org.freedesktop.DBus.Properties"};
}

connection_type_e kindOf(const std::string& type) {
    if (type == "802-11-wireless") {
        return CONNECTION_TYPE_WIFI;
    }
    if (type == "802-3-ethernet") {
        return CONNECTION_TYPE_ETHERNET;
    }
    if (type == "gsm" || type == "cdma" || type == "wwan") {
        return CONNECTION_TYPE_CELLULAR;
    }
    return CONNECTION_TYPE_OTHER;
}

// The zero value of T if the property is missing or has another type.
template <typename T>
T valueOf(const std::map<std::string, gio::Variant>& properties, const char* name) {
    const auto found = properties.find(name);
    return found != properties.end() && found->second.is<T>() ? found->second.template as<T>() : T{};
}

}  // namespace

NetworkManager::NetworkManager(gio::IoThread& thread, std::function<void()> changed)
    : mThread(thread), mChanged(std::move(changed)) {
    connect();
}

// Wraps a method as a callback that does nothing once this object is destroyed.
template <typename Method>
auto NetworkManager::handler(Method method) {
    return [method, self = std::weak_ptr<NetworkManager*>(mSelf)](auto&&... arguments) {
        if (const auto alive = self.lock()) {
            process::contained("NetworkManager query",
                               [&] { ((*alive)->*method)(std::forward<decltype(arguments)>(arguments)...); });
        }
    };
}

// A private connection, because the one that GIO shares stays closed as long as any code holds a reference to it.
void NetworkManager::connect() {
    gio::Connection::openAsync(gio::addressOf(G_BUS_TYPE_SYSTEM), mThread.context(), TIMEOUT_MS,
                               handler(&NetworkManager::connected));
}

void NetworkManager::connected(gio::Connection bus) {
    mBus = std::move(bus);
    if (!mBus.isOpen()) {
        return lost();
    }
    mLoss = mBus.onClosed(handler(&NetworkManager::lost));
    mPropertiesChanged = mBus.subscribe(properties(), "PropertiesChanged", handler(&NetworkManager::hint));
    mOwnerChanged = mBus.subscribe(gio::messageBus(), "NameOwnerChanged", handler(&NetworkManager::hint), NAME);
    ask();
}

// Without a system bus, there is no NetworkManager.
void NetworkManager::lost() {
    mLoss.reset();
    mThread.postAfter(RETRY_MS, handler(&NetworkManager::connect));
    become(State::Absent);
}

// Every signal only triggers a new query.
void NetworkManager::hint(const gio::Variant&) {
    ask();
}

// One query at a time. All signals that arrive in the meantime cause a single further query.
void NetworkManager::ask() {
    mAskAgain = mAsking;
    if (mAsking || !mBus.isOpen()) {
        return;
    }
    mAsking = true;
    mBus.callAsync(properties(), "GetAll", gio::Variant::tuple(NAME), {TIMEOUT_MS, false},
                   handler(&NetworkManager::answered));
}

void NetworkManager::answered(const gio::Variant& answer, const gio::CallError* error) {
    using Properties = std::map<std::string, gio::Variant>;
    mAsking = false;
    const bool running = answer.is<std::tuple<Properties>>();
    if (running) {
        const auto [properties] = answer.fields<Properties>();
        const auto state = valueOf<std::uint32_t>(properties, "State");
        const auto type = valueOf<std::string>(properties, "PrimaryConnectionType");
        mType = state > CONNECTED_LOCAL ? kindOf(type) : CONNECTION_TYPE_DISCONNECTED;
    }
    if (mAskAgain) {
        ask();
    } else if (error != nullptr && error->isTimeout()) {
        mThread.postAfter(RETRY_MS, handler(&NetworkManager::ask));
    }
    become(running ? State::Running : State::Absent);
}

void NetworkManager::become(State state) {
    const bool stays = std::exchange(mState, state) == state && state == State::Absent;
    if (!stays) {
        mChanged();
    }
}

}  // namespace network
