#include "lib/gio/MainLoopPost.h"

#include <Ecore.h>

#include <memory>

namespace {

using Work = std::function<void()>;

void runPosted(void* data) noexcept { (*std::unique_ptr<Work>(static_cast<Work*>(data)))(); }

}  // namespace

void postToMainLoop(Work work) { ecore_main_loop_thread_safe_call_async(runPosted, new Work(std::move(work))); }
