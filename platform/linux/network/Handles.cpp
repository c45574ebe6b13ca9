// SPDX-License-Identifier: Apache-2.0
#include "Handles.h"

#include <algorithm>

#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"

namespace network {

connection_h Handles::create() {
    auto handle = std::make_unique<connection_s>();
    const std::lock_guard lock(mMutex);
    handle->id = ++mLastId;
    mAll.push_back(std::move(handle));
    return mAll.back().get();
}

bool Handles::destroy(connection_h handle) {
    const std::lock_guard lock(mMutex);
    const auto found = std::find_if(mAll.begin(), mAll.end(), [=](const auto& known) { return known.get() == handle; });
    if (found == mAll.end()) {
        return false;
    }
    mAll.erase(found);
    return true;
}

void Handles::setCallback(connection_h handle, connection_type_changed_cb callback, void* userData) {
    const std::lock_guard lock(mMutex);
    handle->callback = callback;
    handle->userData = userData;
}

// A copy of the first handle with a greater id; its id is 0 if no such handle exists.
connection_s Handles::handleAfter(unsigned long id) {
    const std::lock_guard lock(mMutex);
    const auto found = std::find_if(mAll.begin(), mAll.end(), [=](const auto& known) { return known->id > id; });
    return found == mAll.end() ? connection_s() : **found;
}

// On the IO thread. The first answer may arrive before the main loop exists, but no callback is set then.
void Handles::post(connection_type_e type) {
    const std::lock_guard lock(mMutex);
    if (std::any_of(mAll.begin(), mAll.end(), [](const auto& handle) { return handle->callback; })) {
        postToMainLoop([this, type] { process::contained("connection type report", [&] { report(type); }); });
    }
}

// Callbacks may unset and destroy any handle, so each handle is looked up just before its callback.
void Handles::report(connection_type_e type) {
    for (connection_s handle = handleAfter(0); handle.id != 0; handle = handleAfter(handle.id)) {
        if (handle.callback != nullptr) {
            process::contained("connection callback", [&] { handle.callback(type, handle.userData); });
        }
    }
}

}  // namespace network
