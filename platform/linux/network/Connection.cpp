// SPDX-License-Identifier: Apache-2.0
#include <net_connection.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "Monitor.h"
#include "mainloop/MainLoopPost.h"

struct connection_s {
    unsigned long id = 0;
    connection_type_changed_cb callback = nullptr;
    void* userData = nullptr;
};

namespace {

// The handles in use. Ids are never reused. Callbacks are set, run, and unset on the main loop; the list also changes
// before main().
std::mutex mutex;
std::vector<std::unique_ptr<connection_s>>& handles() {
    static auto* all = new std::vector<std::unique_ptr<connection_s>>;
    return *all;
}
unsigned long lastId = 0;

// The first handle with a greater id; has no id if no such handle exists.
connection_s handleAfter(unsigned long id) {
    std::lock_guard<std::mutex> lock(mutex);
    const auto found =
        std::find_if(handles().begin(), handles().end(), [=](const auto& handle) { return handle->id > id; });
    return found == handles().end() ? connection_s() : **found;
}

// Callbacks may unset and destroy any handle, so each handle is looked up just before its callback.
void reportToAll(connection_type_e type) {
    for (connection_s handle = handleAfter(0); handle.id != 0; handle = handleAfter(handle.id)) {
        if (handle.callback != nullptr) {
            handle.callback(type, handle.userData);
        }
    }
}

// IO thread only. The first answer may come before the main loop exists, but then no callback is set yet.
void postToAll(connection_type_e type) {
    std::lock_guard<std::mutex> lock(mutex);
    if (std::any_of(handles().begin(), handles().end(), [](const auto& handle) { return handle->callback; })) {
        postToMainLoop([type] { reportToAll(type); });
    }
}

}  // namespace

extern "C" {

int connection_create(connection_h* connection) {
    if (connection == nullptr) {
        return CONNECTION_ERROR_INVALID_PARAMETER;
    }
    network::Monitor::get().setListener(postToAll);
    std::lock_guard<std::mutex> lock(mutex);
    handles().push_back(std::make_unique<connection_s>());
    handles().back()->id = ++lastId;
    *connection = handles().back().get();
    return CONNECTION_ERROR_NONE;
}

int connection_destroy(connection_h connection) {
    std::lock_guard<std::mutex> lock(mutex);
    auto& all = handles();
    const auto found =
        std::find_if(all.begin(), all.end(), [=](const auto& handle) { return handle.get() == connection; });
    if (found == all.end()) {
        return CONNECTION_ERROR_INVALID_PARAMETER;
    }
    all.erase(found);
    return CONNECTION_ERROR_NONE;
}

int connection_get_type(connection_h connection, connection_type_e* type) {
    if (connection == nullptr || type == nullptr) {
        return CONNECTION_ERROR_INVALID_PARAMETER;
    }
    *type = network::Monitor::get().type();
    return CONNECTION_ERROR_NONE;
}

int connection_set_type_changed_cb(connection_h connection, connection_type_changed_cb callback, void* user_data) {
    if (connection == nullptr || callback == nullptr) {
        return CONNECTION_ERROR_INVALID_PARAMETER;
    }
    std::lock_guard<std::mutex> lock(mutex);
    connection->callback = callback;
    connection->userData = user_data;
    return CONNECTION_ERROR_NONE;
}

int connection_unset_type_changed_cb(connection_h connection) {
    if (connection == nullptr) {
        return CONNECTION_ERROR_INVALID_PARAMETER;
    }
    std::lock_guard<std::mutex> lock(mutex);
    connection->callback = nullptr;
    return CONNECTION_ERROR_NONE;
}

}  // extern "C"
