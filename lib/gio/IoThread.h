// SPDX-License-Identifier: Apache-2.0
// The one thread that serves D-Bus, dconf and the network on a GLib main context of its own (Ecore here cannot run GLib
// sources). Rooms hand it work by post() or run(); what belongs on the main loop goes back by postToMainLoop().
#pragma once

#include <gio/gio.h>

#include <functional>
#include <thread>

namespace gio {

class IoThread {
public:
    // Started on first use, which may be before main(); lives until the process ends.
    static IoThread& get();

    GMainContext* context() const { return mContext; }
    bool isCurrent() const { return std::this_thread::get_id() == mThread.get_id(); }

    // Runs `work` on the thread, later. Any thread.
    void post(std::function<void()> work);
    // Runs `work` on the thread and waits for it; on the thread itself runs it at once. Never while holding a lock that
    // work on the thread takes.
    void run(const std::function<void()>& work);
    // Runs `work` on the thread after `milliseconds`.
    void postAfter(unsigned milliseconds, std::function<void()> work);

private:
    IoThread();

    GMainContext* mContext;
    std::thread mThread;
};

}  // namespace gio
