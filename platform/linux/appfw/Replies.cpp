// SPDX-License-Identifier: Apache-2.0
#include "Replies.h"

#include <utility>

#include "gio/GPointer.h"
#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"

namespace appfw {

std::string Replies::expect(const app_control_s& request, app_control_reply_cb callback, void* userData) {
    if (callback == nullptr) {
        return "";
    }
    const gio::Text token(g_uuid_string_random());  // random, so that other applications cannot guess it
    const std::lock_guard lock(mMutex);
    mExpected.insert({token.get(), {request, callback, userData, ""}});
    return token.get();
}

void Replies::forget(const std::string& token) {
    const std::lock_guard lock(mMutex);
    mExpected.erase(token);
}

void Replies::expectFrom(const std::string& token, const std::string& peer) {
    watchPeers();
    {
        const std::lock_guard lock(mMutex);
        const auto found = mExpected.find(token);
        if (found == mExpected.end()) {
            return;  // already answered
        }
        found->second.peer = peer;
    }
    // The peer may have left the bus before the watch began.
    if (peer.empty() || !bus::session().hasOwner(peer)) {
        take(token, APP_CONTROL_RESULT_FAILED, {});
    }
}

void Replies::take(const std::string& token, app_control_result_e result, Extras extras) {
    std::unique_lock lock(mMutex);
    auto found = mExpected.extract(token);
    lock.unlock();
    if (found.empty()) {
        return;
    }
    postToMainLoop([waiting = std::move(found.mapped()), extras = std::move(extras), result] {
        process::contained("reply callback", [&] {
            app_control_s request = waiting.request;
            app_control_s reply;
            reply.extras = extras;
            waiting.callback(&request, &reply, result, waiting.userData);
        });
    });
}

void Replies::watchPeers() {
    std::call_once(mWatching, [this] {
        mWatch = bus::session().subscribe(gio::messageBus(), "NameOwnerChanged", [this](const gio::Variant& arguments) {
            process::contained("request receiver watch", [&] { ownerChanged(arguments); });
        });
    });
}

// The bus sends this signal after all messages of the connection, including its replies.
void Replies::ownerChanged(const gio::Variant& arguments) {
    const auto [name, before, after] = arguments.fields<std::string, std::string, std::string>();
    if (name.front() != ':' || !after.empty()) {
        return;
    }
    for (const std::string& token : tokensOf(name)) {
        take(token, APP_CONTROL_RESULT_FAILED, {});
    }
}

std::vector<std::string> Replies::tokensOf(const std::string& peer) {
    const std::lock_guard lock(mMutex);
    std::vector<std::string> tokens;
    for (const auto& [token, waiting] : mExpected) {
        if (waiting.peer == peer) {
            tokens.push_back(token);
        }
    }
    return tokens;
}

}  // namespace appfw
