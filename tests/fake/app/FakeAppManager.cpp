// SPDX-License-Identifier: Apache-2.0
#include "fake/app/FakeAppManager.h"

#include <app_manager.h>
#include <string.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct app_context_s {};

namespace {

std::mutex stateMutex;
std::map<std::string, pid_t> running;
app_context_s context;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    running.clear();
});

}  // namespace

void fake::setRunning(const std::string& appId, pid_t pid) {
    std::lock_guard<std::mutex> lock(stateMutex);
    running[appId] = pid;
}

extern "C" {

int app_manager_is_running(const char* app_id, bool* is_running) {
    const int result = platform().call("app_manager_is_running", {app_id});
    std::lock_guard<std::mutex> lock(stateMutex);
    *is_running = running.count(app_id) != 0;
    return result;
}

int app_manager_get_app_context(const char* app_id, app_context_h* app_context) {
    const int result = platform().call("app_manager_get_app_context", {app_id});
    if (result == 0) {
        *app_context = &context;
    }
    return result;
}

int app_context_destroy(app_context_h) {
    return platform().call("app_context_destroy");
}

int app_manager_terminate_app(app_context_h) {
    return platform().call("app_manager_terminate_app");
}

int app_manager_get_app_id(pid_t pid, char** app_id) {
    const int result = platform().call("app_manager_get_app_id", {str(pid)});
    std::lock_guard<std::mutex> lock(stateMutex);
    for (const auto& [id, owner] : running) {
        if (owner == pid && pid > 0) {
            *app_id = strdup(id.c_str());
        }
    }
    return result;
}

}  // extern "C"
