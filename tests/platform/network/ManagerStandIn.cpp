// SPDX-License-Identifier: Apache-2.0
#include "ManagerStandIn.h"

#include <vector>

#include "dbus/standins/StandInInterfaces.h"

namespace {

constexpr char PATH[] = "/org/freedesktop/NetworkManager";
constexpr char PROPERTIES[] = "org.freedesktop.DBus.Properties";

}  // namespace

ManagerStandIn::ManagerStandIn(const std::string& busAddress)
    : mBus(gio::Connection::open(busAddress, mLoop.context())) {
    mObject = mBus.exportObject(PATH, dbus::standInInterface(PROPERTIES), [this](auto& call) { answer(call); });
    mThread = std::thread([this] { mLoop.run(); });
}

ManagerStandIn::~ManagerStandIn() {
    mLoop.quit();
    mThread.join();
}

void ManagerStandIn::become(std::uint32_t state, const std::string& type) {
    std::lock_guard<std::mutex> lock(mMutex);
    mState = state;
    mType = type;
    mBus.emitSignal(PATH, PROPERTIES, "PropertiesChanged",
                    gio::Variant::tuple("org.freedesktop.NetworkManager", properties(), std::vector<std::string>()));
}

void ManagerStandIn::freeze(bool frozen) {
    std::lock_guard<std::mutex> lock(mMutex);
    mFrozen = frozen;
}

int ManagerStandIn::unanswered() {
    std::lock_guard<std::mutex> lock(mMutex);
    return mUnanswered;
}

ManagerStandIn::Properties ManagerStandIn::properties() const {
    return {{"State", gio::Variant::of(mState)}, {"PrimaryConnectionType", gio::Variant::of(mType)}};
}

void ManagerStandIn::answer(gio::MethodCall& call) {
    std::lock_guard<std::mutex> lock(mMutex);
    if (mFrozen) {
        ++mUnanswered;
    } else {
        call.reply(gio::Variant::tuple(properties()));
    }
}
