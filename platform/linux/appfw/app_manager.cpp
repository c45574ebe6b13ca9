// SPDX-License-Identifier: Apache-2.0
// Running applications. An application is running if its id has an owner on the bus.
#include "app_manager.h"

#include <cstring>
#include <memory>
#include <string>

#include "AppId.h"
#include "bus/SessionBus.h"
#include "gio/Address.h"
#include "process/Guard.h"

struct app_context_s {
    std::string id;
};

namespace {

constexpr process::Failures<int> kFailures{APP_MANAGER_ERROR_IO_ERROR, APP_MANAGER_ERROR_OUT_OF_MEMORY};

}  // namespace

int app_manager_is_running(const char* app_id, bool* running) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_id == nullptr || running == nullptr) {
            return APP_MANAGER_ERROR_INVALID_PARAMETER;
        }
        if (!bus::session().isOpen()) {
            return APP_MANAGER_ERROR_IO_ERROR;
        }
        *running = gio::isBusName(app_id) && bus::session().hasOwner(app_id);
        return APP_MANAGER_ERROR_NONE;
    });
}

int app_manager_get_app_context(const char* app_id, app_context_h* app_context) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_context == nullptr) {
            return APP_MANAGER_ERROR_INVALID_PARAMETER;
        }
        bool running = false;
        if (const int code = app_manager_is_running(app_id, &running); code != APP_MANAGER_ERROR_NONE) {
            return code;
        }
        if (!running) {
            return APP_MANAGER_ERROR_NO_SUCH_APP;
        }
        *app_context = std::make_unique<app_context_s>(app_context_s{app_id}).release();
        return APP_MANAGER_ERROR_NONE;
    });
}

int app_context_destroy(app_context_h app_context) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        const std::unique_ptr<app_context_s> owned(app_context);
        return owned ? APP_MANAGER_ERROR_NONE : APP_MANAGER_ERROR_INVALID_PARAMETER;
    });
}

int app_manager_terminate_app(app_context_h app_context) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_context == nullptr) {
            return APP_MANAGER_ERROR_INVALID_PARAMETER;
        }
        const gio::Target app{app_context->id, "/org/orvane/Application", "org.orvane.Application1"};
        try {
            bus::session().call(app, "Close", {}, {5000, false});
            return APP_MANAGER_ERROR_NONE;
        } catch (const gio::CallError&) {
            return APP_MANAGER_ERROR_REQUEST_FAILED;
        }
    });
}

int app_manager_get_app_id(pid_t pid, char** app_id) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_id == nullptr || pid <= 0) {
            return APP_MANAGER_ERROR_INVALID_PARAMETER;
        }
        if (!bus::session().isOpen()) {
            return APP_MANAGER_ERROR_IO_ERROR;
        }
        const std::string id = appfw::appIdOf(pid);
        if (id.empty()) {
            return APP_MANAGER_ERROR_NO_SUCH_APP;
        }
        *app_id = strdup(id.c_str());
        return APP_MANAGER_ERROR_NONE;
    });
}
