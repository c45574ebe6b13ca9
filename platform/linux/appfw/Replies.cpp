#include "appfw/Replies.h"

#include <mutex>

#include "lib/gio/GPointer.h"
#include "lib/gio/MainLoopPost.h"

namespace appfw {

namespace {

struct Expected {
    app_control_s request;
    app_control_reply_cb callback;
    void* userData;
};

std::mutex mutex;
std::map<std::string, Expected> expected;

}  // namespace

std::string expectReply(const app_control_s& request, app_control_reply_cb callback, void* userData) {
    if (callback == nullptr) {
        return "";
    }
    const gio::Text token(g_uuid_string_random());  // so that other applications cannot guess it
    std::lock_guard lock(mutex);
    expected.insert({token.get(), {request, callback, userData}});
    return token.get();
}

void forgetReply(const std::string& token) {
    std::lock_guard lock(mutex);
    expected.erase(token);
}

void takeReply(const std::string& token, app_control_result_e result, Extras extras) {
    std::unique_lock lock(mutex);
    auto found = expected.extract(token);
    lock.unlock();
    if (found.empty()) {
        return;
    }
    postToMainLoop([waiting = std::move(found.mapped()), extras = std::move(extras), result] {
        app_control_s request = waiting.request;
        app_control_s reply;
        reply.extras = extras;
        waiting.callback(&request, &reply, result, waiting.userData);
    });
}

}  // namespace appfw
