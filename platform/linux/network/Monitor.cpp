// SPDX-License-Identifier: Apache-2.0
#include "Monitor.h"

#include <gio/gio.h>

#include "Links.h"
#include "NetworkManager.h"
#include "Route.h"
#include "gio/GPointer.h"
#include "gio/IoThread.h"
#include "mainloop/MainLoopPost.h"

namespace network {

namespace {

// GIO's own monitor may watch the manager too, over the process's shared connection, whose end would be the process's.
void keepRunningWithoutSystemBus() {
    gio::Error error;
    static GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, error.out());  // kept for good
    if (bus != nullptr) {
        g_dbus_connection_set_exit_on_close(bus, FALSE);
    }
}

}  // namespace

Monitor& Monitor::get() {
    static Monitor* instance = new Monitor;
    return *instance;
}

Monitor::Monitor() {
    gio::IoThread::get().post([this] { start(); });
}

void Monitor::start() {
    keepRunningWithoutSystemBus();
    mManager = new NetworkManager([this] { update(); });
    g_signal_connect(
        g_network_monitor_get_default(), "network-changed",
        G_CALLBACK(+[](GNetworkMonitor*, gboolean, gpointer self) noexcept { static_cast<Monitor*>(self)->update(); }),
        this);
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
