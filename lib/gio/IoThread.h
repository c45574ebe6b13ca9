// SPDX-License-Identifier: Apache-2.0
// A thread with its own GLib main context, for handlers that must not run on the program's main loop.
#pragma once

#include <functional>
#include <thread>

#include "gio/MainLoop.h"

namespace gio {

class IoThread {
public:
    IoThread();
    ~IoThread() { stop(); }
    IoThread(const IoThread&) = delete;
    IoThread& operator=(const IoThread&) = delete;

    // Waits for running work. Work that is posted afterward never runs, and run() runs its work on the calling thread.
    // Not on this thread.
    void stop() noexcept;

    const Context& context() const { return mLoop.context(); }

    // See Context.
    void post(std::function<void()> work) { context().post(std::move(work)); }
    void postAfter(unsigned milliseconds, std::function<void()> work) {
        context().postAfter(milliseconds, std::move(work));
    }
    void run(const std::function<void()>& work) { context().run(work); }

private:
    MainLoop mLoop;
    std::thread mThread;
};

}  // namespace gio
