// SPDX-License-Identifier: Apache-2.0
#include "Subscriptions.h"

#include <algorithm>

#include "KeyNode.h"
#include "Store.h"
#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"

namespace settings {

namespace {

bool covers(const std::string& changed, const std::string& path) {
    return changed == path ||
           (!changed.empty() && changed.back() == '/' && path.compare(0, changed.size(), changed) == 0);
}

}  // namespace

void Subscriptions::add(const std::string& path, vconf_callback_fn callback, void* userData) {
    std::lock_guard<std::mutex> lock(mMutex);
    const auto known = find(path, callback);
    if (known != mAll.end()) {
        known->userData = userData;
    } else {
        mAll.push_back({++mLastId, path, callback, userData});
    }
}

bool Subscriptions::remove(const std::string& path, vconf_callback_fn callback) {
    std::lock_guard<std::mutex> lock(mMutex);
    const auto known = find(path, callback);
    if (known == mAll.end()) {
        return false;
    }
    mAll.erase(known);
    return true;
}

std::vector<Subscriptions::Subscription>::iterator Subscriptions::find(const std::string& path,
                                                                       vconf_callback_fn callback) {
    return std::find_if(mAll.begin(), mAll.end(), [&](const Subscription& subscription) {
        return subscription.path == path && subscription.callback == callback;
    });
}

void Subscriptions::changed(const std::vector<std::string>& paths) {
    std::lock_guard<std::mutex> lock(mMutex);
    for (const Subscription& subscription : mAll) {
        if (std::any_of(paths.begin(), paths.end(),
                        [&](const std::string& changed) { return covers(changed, subscription.path); })) {
            postToMainLoop(
                [this, id = subscription.id] { process::contained("settings callback", [&] { notify(id); }); });
        }
    }
}

// Main loop only, like unsubscribing. Reads the value now, so that the callback receives the same value that it would
// read itself.
void Subscriptions::notify(unsigned long id) {
    Subscription subscription{};
    {
        std::lock_guard<std::mutex> lock(mMutex);
        const auto found =
            std::find_if(mAll.begin(), mAll.end(), [=](const Subscription& candidate) { return candidate.id == id; });
        if (found == mAll.end()) {
            return;
        }
        subscription = *found;
    }
    keynode_s node = nodeOf(Store::get().read(subscription.path).get());
    subscription.callback(&node, subscription.userData);
}

}  // namespace settings
