// SPDX-License-Identifier: Apache-2.0
#include "apps/NetworkManager.h"

#include <cstdint>
#include <map>
#include <stdexcept>
#include <vector>

#include "dbus/standins/StandInInterfaces.h"
#include "shared/Control.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/freedesktop/NetworkManager";
constexpr char kInterface[] = "org.freedesktop.NetworkManager";
constexpr std::uint32_t kConnected = 70;
constexpr std::uint32_t kDisconnected = 20;
constexpr std::uint32_t kFull = 4;
constexpr std::uint32_t kNone = 1;
constexpr std::uint32_t kUnknown = 0;

}  // namespace

NetworkManager::NetworkManager(const std::string& name) : mName(name) {
    mObject = mBus.exportObject(
        kPath, dbus::standInInterface(kInterface), [](gio::MethodCall&) {},
        [this](const std::string& wanted) { return property(wanted); });
    mControl =
        exportControl(mBus, [this](const std::string& action, const std::string& kind) { onControl(action, kind); });
    mClosed = mBus.onClosed([this] { mLoop.quit(); });
}

void NetworkManager::run() {
    const gio::OwnedName name = mBus.ownName(mName);
    if (!name) {
        throw std::runtime_error(mName + " is already running");
    }
    mLoop.run();
}

void NetworkManager::onControl(const std::string& action, const std::string& kind) {
    if (action != "network") {
        throw std::runtime_error(mName + " does not know the action " + action);
    }
    if (kind != "ethernet" && kind != "wifi" && kind != "none") {
        throw std::runtime_error("unknown kind of network: " + kind);
    }
    mKind = kind;
    std::map<std::string, gio::Variant> changed;
    for (const char* name : {"State", "Connectivity", "PrimaryConnectionType", "PrimaryConnection"}) {
        changed[name] = property(name);
    }
    mBus.emitSignal(kPath, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                    gio::Variant::tuple(kInterface, changed, std::vector<std::string>()));
    mBus.emitSignal(kPath, kInterface, "StateChanged",
                    gio::Variant::tuple(mKind == "none" ? kDisconnected : kConnected));
}

gio::Variant NetworkManager::property(const std::string& name) const {
    const bool on = mKind != "none";
    if (name == "State") {
        return gio::Variant::of(on ? kConnected : kDisconnected);
    }
    if (name == "Connectivity") {
        return gio::Variant::of(on ? kFull : kNone);
    }
    if (name == "PrimaryConnectionType") {
        return gio::Variant::of(!on ? "" : mKind == "wifi" ? "802-11-wireless" : "802-3-ethernet");
    }
    if (name == "PrimaryConnection") {
        return gio::Variant::of(gio::ObjectPath{on ? "/org/freedesktop/NetworkManager/ActiveConnection/1" : "/"});
    }
    return gio::Variant::of(kUnknown);
}

}  // namespace sim
