// SPDX-License-Identifier: Apache-2.0
// Requests between applications, over D-Bus.
#include "app_control.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "DesktopApp.h"
#include "Replies.h"
#include "Request.h"
#include "bus/SessionBus.h"
#include "gio/Address.h"
#include "process/FaultLog.h"
#include "process/Guard.h"

namespace {

constexpr int LAUNCH_MILLISECONDS = 10000;  // includes starting the application

constexpr process::Failures<int> kFailures{APP_CONTROL_ERROR_IO_ERROR, APP_CONTROL_ERROR_OUT_OF_MEMORY};

using Field = std::optional<std::string> app_control_s::*;

int set(const char* function, app_control_h request, Field field, const char* text) noexcept {
    return process::guarded(kFailures, function, [&]() -> int {
        if (request == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        text ? request->*field = text : request->*field = std::nullopt;
        return APP_CONTROL_ERROR_NONE;
    });
}

int get(const char* function, app_control_h request, Field field, char** text) noexcept {
    return process::guarded(kFailures, function, [&]() -> int {
        if (request == nullptr || text == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        *text = request->*field ? strdup((request->*field)->c_str()) : nullptr;
        return APP_CONTROL_ERROR_NONE;
    });
}

// Null if the extra does not exist; `code` then contains the reason.
const Extra* find(app_control_h request, const char* key, const void* output, int& code) {
    code = APP_CONTROL_ERROR_INVALID_PARAMETER;
    if (request == nullptr || key == nullptr || output == nullptr) {
        return nullptr;
    }
    const auto found = request->extras.find(key);
    code = found == request->extras.end() ? APP_CONTROL_ERROR_KEY_NOT_FOUND : APP_CONTROL_ERROR_NONE;
    return found == request->extras.end() ? nullptr : &found->second;
}

// D-Bus texts must be UTF-8; sending any other text would close the connection.
bool isText(const std::optional<std::string>& text) {
    return gio::isUtf8(text.value_or(""));
}

gio::Target applicationOf(const std::string& name) {
    return {name, "/org/orvane/Application", "org.orvane.Application1"};
}

void logFault(const std::string& app, const std::string& text) {
    process::logFault(DLOG_ERROR, "orvane-appfw", app, text);
}

int failureOf(const std::string& id, const gio::CallError& error) {
    logFault(id, id + " did not accept the request: " + error.what());
    if (!bus::session().isOpen()) {
        return APP_CONTROL_ERROR_IO_ERROR;
    }
    return error.isTimeout() ? APP_CONTROL_ERROR_TIMED_OUT : APP_CONTROL_ERROR_LAUNCH_FAILED;
}

// A desktop application cannot reply, so its successful start counts as the reply.
int started(int code, const std::string& token) {
    if (code == APP_CONTROL_ERROR_NONE) {
        process::shared<appfw::Replies>().take(token, APP_CONTROL_RESULT_APP_STARTED, {});
    }
    return code;
}

int view(const std::string& uri, const std::string& token) {
    return started(appfw::openInDefaultApp(uri), token);
}

int launch(const app_control_s& request, const std::string& token) {
    const std::string& id = *request.appId;
    const std::string operation = request.operation.value_or("");
    const std::string uri = request.uri.value_or("");
    if (!gio::isBusName(id)) {
        logFault(id, "application " + id + " is not installed");
        return APP_CONTROL_ERROR_APP_NOT_FOUND;
    }
    try {
        bus::session().call(applicationOf(id), "Launch",
                            gio::Variant::tuple(operation, uri, appfw::toWire(request.extras), token),
                            {LAUNCH_MILLISECONDS});
    } catch (const gio::CallError& error) {
        return error.hasNoReceiver() ? started(appfw::launchDesktopApp(id, uri), token) : failureOf(id, error);
    }
    process::faultEnded(id);
    if (!token.empty()) {
        process::shared<appfw::Replies>().expectFrom(token, bus::session().ownerOf(id));
    }
    return APP_CONTROL_ERROR_NONE;
}

int send(app_control_h request, app_control_reply_cb callback, void* userData) {
    if (request == nullptr) {
        return APP_CONTROL_ERROR_INVALID_PARAMETER;
    }
    const bool named = !request->appId.value_or("").empty();
    if (!named && request->operation != APP_CONTROL_OPERATION_VIEW) {
        return APP_CONTROL_ERROR_INVALID_PARAMETER;
    }
    if (!isText(request->operation) || !isText(request->uri)) {
        logFault("request", "a request contains text that is not UTF-8");
        return APP_CONTROL_ERROR_INVALID_PARAMETER;
    }
    auto& replies = process::shared<appfw::Replies>();
    const std::string token = replies.expect(*request, callback, userData);
    const int code = named ? launch(*request, token) : view(request->uri.value_or(""), token);
    if (code != APP_CONTROL_ERROR_NONE) {
        replies.forget(token);
    }
    return code;
}

}  // namespace

int app_control_create(app_control_h* app_control) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_control == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        *app_control = std::make_unique<app_control_s>().release();
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_destroy(app_control_h app_control) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_control == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        const std::unique_ptr<app_control_s> owned(app_control);
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_set_app_id(app_control_h app_control, const char* app_id) {
    return set(__func__, app_control, &app_control_s::appId, app_id);
}
int app_control_set_operation(app_control_h app_control, const char* operation) {
    return set(__func__, app_control, &app_control_s::operation, operation);
}
int app_control_set_uri(app_control_h app_control, const char* uri) {
    return set(__func__, app_control, &app_control_s::uri, uri);
}
int app_control_get_app_id(app_control_h app_control, char** app_id) {
    return get(__func__, app_control, &app_control_s::appId, app_id);
}
int app_control_get_operation(app_control_h app_control, char** operation) {
    return get(__func__, app_control, &app_control_s::operation, operation);
}
int app_control_get_uri(app_control_h app_control, char** uri) {
    return get(__func__, app_control, &app_control_s::uri, uri);
}

int app_control_add_extra_data(app_control_h app_control, const char* key, const char* value) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_control == nullptr || key == nullptr || *key == 0 || value == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        app_control->extras[key] = {false, {value}};
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_add_extra_data_array(app_control_h app_control, const char* key, const char* value[], int length) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_control == nullptr || key == nullptr || *key == 0 || length < 0 || (value == nullptr && length > 0)) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        app_control->extras[key] = {true, std::vector<std::string>(value, value + length)};
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_get_extra_data(app_control_h app_control, const char* key, char** value) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        int code = 0;
        const Extra* extra = find(app_control, key, value, code);
        if (extra == nullptr) {
            return code;
        }
        if (extra->array) {
            return APP_CONTROL_ERROR_INVALID_DATA_TYPE;
        }
        *value = strdup(extra->values.at(0).c_str());
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_get_extra_data_array(app_control_h app_control, const char* key, char*** value, int* length) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        int code = 0;
        const Extra* extra = find(app_control, key, length == nullptr ? nullptr : value, code);
        if (extra == nullptr) {
            return code;
        }
        if (!extra->array) {
            return APP_CONTROL_ERROR_INVALID_DATA_TYPE;
        }
        const std::vector<std::string>& values = extra->values;
        *value = static_cast<char**>(std::calloc(values.size() + 1, sizeof(char*)));
        std::transform(values.begin(), values.end(), *value,
                       [](const std::string& one) { return strdup(one.c_str()); });
        *length = static_cast<int>(values.size());
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_is_extra_data_array(app_control_h app_control, const char* key, bool* array) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        int code = 0;
        if (const Extra* extra = find(app_control, key, array, code)) {
            *array = extra->array;
        }
        return code;
    });
}

int app_control_foreach_extra_data(app_control_h app_control, app_control_extra_data_cb callback, void* user_data) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (app_control == nullptr || callback == nullptr) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        const Extras extras = app_control->extras;  // a copy, because the callback may change the extras
        for (const auto& [key, extra] : extras) {
            if (!callback(app_control, key.c_str(), user_data)) {
                break;
            }
        }
        return APP_CONTROL_ERROR_NONE;
    });
}

int app_control_send_launch_request(app_control_h app_control, app_control_reply_cb callback, void* user_data) {
    return process::guarded(kFailures, __func__, [&] { return send(app_control, callback, user_data); });
}

int app_control_reply_to_launch_request(app_control_h reply, app_control_h request, app_control_result_e result) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (reply == nullptr || request == nullptr || request->token.empty()) {
            return APP_CONTROL_ERROR_INVALID_PARAMETER;
        }
        try {
            bus::session().call(
                applicationOf(request->sender), "Reply",
                gio::Variant::tuple(request->token, static_cast<std::int32_t>(result), appfw::toWire(reply->extras)));
            return APP_CONTROL_ERROR_NONE;
        } catch (const gio::CallError& error) {
            return failureOf(request->sender, error);
        }
    });
}
