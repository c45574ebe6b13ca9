// SPDX-License-Identifier: Apache-2.0
#include "gio/IoThread.h"

#include <pthread.h>

#include <future>

namespace gio {

IoThread& IoThread::get() {
    // Never destroyed: static objects of the product still call it while the process ends.
    static IoThread* instance = new IoThread;
    return *instance;
}

// Returns when the thread iterates the context, so that Context::run() never runs anything on another one.
IoThread::IoThread() : mLoop(Context()) {
    std::promise<void> running;
    post([&] { running.set_value(); });
    mThread = std::thread([this] {
        pthread_setname_np(pthread_self(), "orvane-io");
        mLoop.run();
    });
    running.get_future().wait();
}

}  // namespace gio
