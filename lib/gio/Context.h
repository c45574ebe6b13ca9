// SPDX-License-Identifier: Apache-2.0
// A GLib main context. Handlers of signals, replies, and calls to exported objects run on the thread that iterates it.
#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>

namespace gio {

class Context {
public:
    // Creates a context that no thread iterates yet.
    Context();
    // The default context, which g_main_loop_new(nullptr, ...) iterates.
    static Context main();

    GMainContext* get() const { return mContext.get(); }

    // Runs `work` on the context's thread, later. Any thread. An exception ends the process.
    void post(std::function<void()> work) const;
    void postAfter(unsigned milliseconds, std::function<void()> work) const;

    // Runs `work` on the context's thread and waits for it. Runs it directly if the caller is on that thread or if no
    // thread iterates the context. Rethrows the exceptions of `work`. Do not hold a lock that work on the thread takes.
    void run(const std::function<void()>& work) const;

private:
    explicit Context(GMainContext* owned);
    void attach(GSource* source, std::function<void()> work) const;

    std::shared_ptr<GMainContext> mContext;
};

}  // namespace gio
