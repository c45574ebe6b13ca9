// SPDX-License-Identifier: Apache-2.0
// The one thread that serves D-Bus, dconf, and the network, on its own GLib main context, because the installed Ecore
// cannot run GLib sources. Modules pass work to it with post() or run(); work for the main loop returns through
// postToMainLoop().
#pragma once

#include <functional>
#include <thread>

#include "gio/MainLoop.h"

namespace gio {

class IoThread {
public:
    // Started on first use, possibly before main(). Lives until the process exits.
    static IoThread& get();

    const Context& context() const { return mLoop.context(); }
    bool isCurrent() const { return std::this_thread::get_id() == mThread.get_id(); }

    // See Context.
    void post(std::function<void()> work) { context().post(std::move(work)); }
    void postAfter(unsigned milliseconds, std::function<void()> work) {
        context().postAfter(milliseconds, std::move(work));
    }
    void run(const std::function<void()>& work) { context().run(work); }

private:
    IoThread();

    MainLoop mLoop;
    std::thread mThread;
};

}  // namespace gio
