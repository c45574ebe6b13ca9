// SPDX-License-Identifier: Apache-2.0
// Stands for NetworkManager on a bus: its properties State and PrimaryConnectionType, and the signal of their change.
#pragma once

#include <gio/gio.h>

#include <mutex>
#include <string>
#include <thread>

#include "gio/GPointer.h"

class ManagerStandIn {
public:
    // On the bus, but without the name until appear(). Served by a thread of its own.
    explicit ManagerStandIn(const std::string& busAddress);
    ~ManagerStandIn();
    ManagerStandIn(const ManagerStandIn&) = delete;
    ManagerStandIn& operator=(const ManagerStandIn&) = delete;

    void appear() { askBus("RequestName", g_variant_new("(su)", NAME, 0U)); }
    void disappear() { askBus("ReleaseName", g_variant_new("(s)", NAME)); }
    void become(guint32 state, const std::string& type);
    // Leaves calls without an answer, or no longer does.
    void freeze(bool frozen);
    // How many it has left so.
    int unanswered();

private:
    static constexpr char NAME[] = "org.freedesktop.NetworkManager";

    void askBus(const char* method, GVariant* arguments);
    GVariant* properties();
    static void onCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
                       GDBusMethodInvocation*, gpointer) noexcept;

    std::mutex mMutex;
    guint32 mState = 20;
    std::string mType;
    bool mFrozen = false;
    int mUnanswered = 0;
    GMainContext* mContext;
    GMainLoop* mLoop;
    gio::Object<GDBusConnection> mBus;
    std::thread mThread;
};
