// SPDX-License-Identifier: Apache-2.0
// A GLib main context. Signals, answers, and calls of exported objects run on the thread that iterates it.
#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>

namespace gio {

class Context {
public:
    // A new one, which nothing iterates yet.
    Context();
    // The default context: the one that g_main_loop_new(nullptr, ...) iterates.
    static Context main();

    GMainContext* get() const { return mContext.get(); }

    // Runs `work` on the context's thread, later. Any thread. An exception ends the process.
    void post(std::function<void()> work) const;
    void postAfter(unsigned milliseconds, std::function<void()> work) const;

    // Runs `work` and returns when it is done: directly on the context's own thread or if no thread iterates the
    // context, otherwise on its thread. Throws what `work` throws. Never hold a lock that work on the thread takes.
    void run(const std::function<void()>& work) const;

private:
    explicit Context(GMainContext* owned);
    void attach(GSource* source, std::function<void()> work) const;

    std::shared_ptr<GMainContext> mContext;
};

}  // namespace gio
