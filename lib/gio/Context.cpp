// SPDX-License-Identifier: Apache-2.0
#include "gio/Context.h"

#include <future>
#include <mutex>

namespace gio {

namespace {

using Work = std::function<void()>;

// GLib hands over work under its own locks, which ThreadSanitizer does not see. Taking this lock on both sides shows
// ThreadSanitizer that attaching the work happens before running it.
std::mutex handover;

gboolean runOnce(gpointer data) noexcept {
    { const std::lock_guard lock(handover); }
    (*static_cast<Work*>(data))();
    return G_SOURCE_REMOVE;
}

void destroyWork(gpointer data) noexcept {
    delete static_cast<Work*>(data);
}

// Sources created while this object exists belong to the context. The caller must have acquired the context.
class Default {
public:
    explicit Default(GMainContext* context) : mContext(context) { g_main_context_push_thread_default(mContext); }
    ~Default() {
        g_main_context_pop_thread_default(mContext);
        g_main_context_release(mContext);
    }
    Default(const Default&) = delete;
    Default& operator=(const Default&) = delete;

private:
    GMainContext* mContext;
};

}  // namespace

Context::Context() : Context(g_main_context_new()) {}

Context::Context(GMainContext* owned) : mContext(owned, g_main_context_unref) {}

Context Context::main() {
    return Context(g_main_context_ref(g_main_context_default()));
}

void Context::post(Work work) const {
    attach(g_idle_source_new(), std::move(work));
}

void Context::postAfter(unsigned milliseconds, Work work) const {
    attach(g_timeout_source_new(milliseconds), std::move(work));
}

void Context::attach(GSource* source, Work work) const {
    g_source_set_callback(source, runOnce, new Work(std::move(work)), destroyWork);
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    { const std::lock_guard lock(handover); }
    g_source_attach(source, get());
    g_source_unref(source);
}

void Context::run(const Work& work) const {
    if (g_main_context_acquire(get())) {
        const Default scope(get());
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
