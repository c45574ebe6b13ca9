// SPDX-License-Identifier: Apache-2.0
#include "gio/IoThread.h"

#include <pthread.h>

#include <future>
#include <mutex>

namespace gio {

namespace {

using Work = std::function<void()>;

// GLib hands work over under locks of its own making, which ThreadSanitizer cannot see. It sees this one: whatever was
// before the work was attached is before it runs.
std::mutex handover;

gboolean runOnce(gpointer data) noexcept {
    { const std::lock_guard lock(handover); }
    (*static_cast<Work*>(data))();
    return G_SOURCE_REMOVE;
}

void destroyWork(gpointer data) noexcept {
    delete static_cast<Work*>(data);
}

void attach(GSource* source, GMainContext* context, Work work) {
    g_source_set_callback(source, runOnce, new Work(std::move(work)), destroyWork);
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    { const std::lock_guard lock(handover); }
    g_source_attach(source, context);
    g_source_unref(source);
}

}  // namespace

IoThread& IoThread::get() {
    // Never destroyed: static objects of the product still call in while the process ends.
    static IoThread* instance = new IoThread;
    return *instance;
}

IoThread::IoThread() : mContext(g_main_context_new()) {
    mThread = std::thread([context = mContext] {
        pthread_setname_np(pthread_self(), "orvane-io");
        g_main_context_push_thread_default(context);
        g_main_loop_run(g_main_loop_new(context, FALSE));
    });
}

void IoThread::post(Work work) {
    attach(g_idle_source_new(), mContext, std::move(work));
}

void IoThread::postAfter(unsigned milliseconds, Work work) {
    attach(g_timeout_source_new(milliseconds), mContext, std::move(work));
}

void IoThread::run(const Work& work) {
    if (isCurrent()) {
        work();
        return;
    }
    std::promise<void> done;
    post([&] {
        try {
            work();
            done.set_value();
        } catch (...) {
            done.set_exception(std::current_exception());
        }
    });
    done.get_future().get();
}

}  // namespace gio
