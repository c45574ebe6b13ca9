// SPDX-License-Identifier: Apache-2.0
#include "Monitor.h"

#include <utility>

#include "Route.h"
#include "bus/SessionBus.h"
#include "process/Guard.h"

namespace network {

Monitor::Monitor(std::function<void(connection_type_e)> listener)
    : mThread(bus::ioThread()), mListener(std::move(listener)) {
    mThread.post([this] { process::contained("network monitor start", [this] { start(); }); });
}

Monitor::~Monitor() {
    mThread.run([this] {
        mLinks.reset();
        mManager.reset();
    });
}

void Monitor::start() {
    mManager = std::make_unique<NetworkManager>(mThread, [this] { update(); });
    mLinks = std::make_unique<LinkWatch>([this] { update(); });
}

void Monitor::update() {
    if (!mManager->isKnown()) {
        return;
    }
    const connection_type_e type = mManager->isRunning() ? mManager->type() : kindOfDefaultRoute();
    const std::lock_guard lock(mMutex);
    const bool changed = type != mType;
    mType = type;
    mKnown = true;
    mAnswered.notify_all();
    if (changed) {
        mListener(type);
    }
}

connection_type_e Monitor::type() {
    std::unique_lock lock(mMutex);
    mAnswered.wait_for(lock, std::chrono::seconds(1), [this] { return mKnown; });
    return mType;
}

}  // namespace network
