// SPDX-License-Identifier: Apache-2.0
#include "gio/IoThread.h"

#include <pthread.h>

#include <future>

namespace gio {

// Returns after the thread has begun to iterate the context, so that Context::run() never runs work on another thread.
IoThread::IoThread() : mLoop(Context()) {
    std::promise<void> running;
    post([&] { running.set_value(); });
    mThread = std::thread([this] {
        pthread_setname_np(pthread_self(), "orvane-io");
        mLoop.run();
    });
    running.get_future().wait();
}

void IoThread::stop() noexcept {
    if (mThread.joinable()) {
        mLoop.quit();
        mThread.join();
    }
}

}  // namespace gio
