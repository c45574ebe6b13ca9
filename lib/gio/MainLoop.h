// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <memory>
#include <utility>

#include "gio/Context.h"

namespace gio {

// Iterates a context on the thread that calls run().
class MainLoop {
public:
    explicit MainLoop(Context context)
        : mContext(std::move(context)), mLoop(g_main_loop_new(mContext.get(), FALSE), g_main_loop_unref) {}

    const Context& context() const { return mContext; }
    // Returns after quit(). While it runs, the context is the thread's default.
    void run() const {
        mContext.run([this] { g_main_loop_run(mLoop.get()); });
    }
    // Any thread. If called before run(), run() returns immediately.
    void quit() const {
        mContext.post([loop = mLoop] { g_main_loop_quit(loop.get()); });
    }

private:
    Context mContext;
    std::shared_ptr<GMainLoop> mLoop;
};

}  // namespace gio
