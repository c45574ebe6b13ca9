// SPDX-License-Identifier: Apache-2.0
#include "Replies.h"

#include <mutex>
#include <vector>

#include "gio/GPointer.h"
#include "gio/SessionBus.h"
#include "mainloop/MainLoopPost.h"

namespace appfw {

namespace {

struct Expected {
    app_control_s request;
    app_control_reply_cb callback;
    void* userData;
    std::string peer;
};

std::mutex mutex;

// Call with the mutex held. Never destroyed: other threads still send and receive while the process exits.
std::map<std::string, Expected>& expected() {
    static auto* instance = new std::map<std::string, Expected>;
    return *instance;
}

std::vector<std::string> tokensOf(const std::string& peer) {
    std::lock_guard lock(mutex);
    std::vector<std::string> tokens;
    for (const auto& [token, waiting] : expected()) {
        if (waiting.peer == peer) {
            tokens.push_back(token);
        }
    }
    return tokens;
}

// This notice arrives after all messages of the connection, including its replies.
void onOwnerChanged(const gio::Variant& arguments) {
    const auto [name, before, after] = arguments.fields<std::string, std::string, std::string>();
    if (name.front() != ':' || !after.empty()) {
        return;
    }
    for (const std::string& token : tokensOf(name)) {
        takeReply(token, APP_CONTROL_RESULT_FAILED, {});
    }
}

// Never destroyed: it watches the bus until the process exits.
void watchPeers() {
    static const auto* const watch =
        new gio::Registration(gio::sessionBus().subscribe(gio::kBus, "NameOwnerChanged", onOwnerChanged));
    static_cast<void>(watch);
}

}  // namespace

std::string expectReply(const app_control_s& request, app_control_reply_cb callback, void* userData) {
    if (callback == nullptr) {
        return "";
    }
    const gio::Text token(g_uuid_string_random());  // random, so that other applications cannot guess it
    std::lock_guard lock(mutex);
    expected().insert({token.get(), {request, callback, userData, ""}});
    return token.get();
}

void expectReplyFrom(const std::string& token, const std::string& peer) {
    watchPeers();
    {
        std::lock_guard lock(mutex);
        const auto found = expected().find(token);
        if (found == expected().end()) {
            return;  // already answered
        }
        found->second.peer = peer;
    }
    // The peer may have left the bus before the watch began.
    if (peer.empty() || !gio::sessionBus().hasOwner(peer)) {
        takeReply(token, APP_CONTROL_RESULT_FAILED, {});
    }
}

void forgetReply(const std::string& token) {
    std::lock_guard lock(mutex);
    expected().erase(token);
}

void takeReply(const std::string& token, app_control_result_e result, Extras extras) {
    std::unique_lock lock(mutex);
    auto found = expected().extract(token);
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
