// SPDX-License-Identifier: Apache-2.0
#include "Monitor.h"

#include "Links.h"
#include "NetworkManager.h"
#include "Route.h"
#include "gio/IoThread.h"

namespace network {

Monitor& Monitor::get() {
    static Monitor* instance = new Monitor;
    return *instance;
}

Monitor::Monitor() {
    gio::IoThread::get().post([this] { start(); });
}

void Monitor::start() {
    mManager = new NetworkManager([this] { update(); });
    mLinks = new LinkWatch([this] { update(); });
}

void Monitor::update() {
    if (!mManager->isKnown()) {
        return;
    }
    const connection_type_e type = mManager->isRunning() ? mManager->type() : kindOfDefaultRoute();
    std::lock_guard<std::mutex> lock(mMutex);
    const bool changed = type != mType;
    mType = type;
    mKnown = true;
    mAnswered.notify_all();
    if (changed && mListener) {
        mListener(type);
    }
}

connection_type_e Monitor::type() {
    std::unique_lock<std::mutex> lock(mMutex);
    mAnswered.wait_for(lock, std::chrono::seconds(1), [this] { return mKnown; });
    return mType;
}

void Monitor::setListener(std::function<void(connection_type_e)> listener) {
    std::lock_guard<std::mutex> lock(mMutex);
    mListener = std::move(listener);
}

}  // namespace network
