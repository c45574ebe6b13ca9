// SPDX-License-Identifier: Apache-2.0
#include "fake/app/FakeAppControl.h"

#include <string.h>

#include <set>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

namespace {

std::mutex stateMutex;
std::vector<fake::Launch> sent;
// Never destroyed, so that the leak checker finds the handles that the product does not destroy.
auto& open = *new std::set<app_control_h>;
// The handles that earlier tests left open: the product never destroys them, or its worker still uses them.
auto& left = *new std::set<app_control_h>;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    sent.clear();
    left.insert(open.begin(), open.end());
    open.clear();
});

char* copyOf(const std::optional<std::string>& text) {
    return text ? strdup(text->c_str()) : nullptr;
}

int setText(const char* function, std::optional<std::string>& field, const char* text) {
    const int result = platform().call(function, {str(text)});
    if (result == 0) {
        field = text;
    }
    return result;
}

}  // namespace

std::string app_control_s::text() const {
    std::string result = appId.value_or("-") + " " + operation.value_or("-") + " " + uri.value_or("-");
    for (const auto& [key, value] : extras) {
        result += " " + key + "=" + value;
    }
    for (const auto& [key, values] : arrays) {
        result += " " + key + "=[";
        for (const std::string& value : values) {
            result += value + ",";
        }
        result += "]";
    }
    return result;
}

namespace fake {

std::vector<Launch> launches() {
    std::lock_guard<std::mutex> lock(stateMutex);
    return sent;
}

std::vector<std::string> launchTexts() {
    std::vector<std::string> texts;
    for (const Launch& launch : launches()) {
        texts.push_back(launch.request.text());
    }
    return texts;
}

size_t openAppControls() {
    std::lock_guard<std::mutex> lock(stateMutex);
    return open.size();
}

bool waitForLaunches(size_t count) {
    return platform().waitUntil([=] { return launches().size() >= count; });
}

}  // namespace fake

extern "C" {

int app_control_create(app_control_h* app_control) {
    const int result = platform().call("app_control_create");
    if (result == 0) {
        std::lock_guard<std::mutex> lock(stateMutex);
        *app_control = new app_control_s;
        open.insert(*app_control);
    }
    return result;
}

int app_control_destroy(app_control_h app_control) {
    const int result = platform().call("app_control_destroy");
    if (result == 0) {
        std::lock_guard<std::mutex> lock(stateMutex);
        open.erase(app_control);
        left.erase(app_control);
        delete app_control;
    }
    return result;
}

int app_control_set_app_id(app_control_h app_control, const char* app_id) {
    return setText("app_control_set_app_id", app_control->appId, app_id);
}

int app_control_set_operation(app_control_h app_control, const char* operation) {
    return setText("app_control_set_operation", app_control->operation, operation);
}

int app_control_set_uri(app_control_h app_control, const char* uri) {
    return setText("app_control_set_uri", app_control->uri, uri);
}

int app_control_get_app_id(app_control_h app_control, char** app_id) {
    *app_id = copyOf(app_control->appId);
    return platform().call("app_control_get_app_id");
}

int app_control_get_operation(app_control_h app_control, char** operation) {
    *operation = copyOf(app_control->operation);
    return platform().call("app_control_get_operation");
}

int app_control_get_uri(app_control_h app_control, char** uri) {
    *uri = copyOf(app_control->uri);
    return platform().call("app_control_get_uri");
}

int app_control_add_extra_data(app_control_h app_control, const char* key, const char* value) {
    const int result = platform().call("app_control_add_extra_data", {key, value});
    if (result == 0) {
        app_control->extras[key] = value;
    }
    return result;
}

int app_control_add_extra_data_array(app_control_h app_control, const char* key, const char* value[], int length) {
    const int result = platform().call("app_control_add_extra_data_array", {key, str(length)});
    if (result == 0) {
        app_control->arrays[key].assign(value, value + length);
    }
    return result;
}

int app_control_is_extra_data_array(app_control_h app_control, const char* key, bool* array) {
    *array = app_control->arrays.count(key) != 0;
    return platform().call("app_control_is_extra_data_array", {key});
}

int app_control_get_extra_data(app_control_h app_control, const char* key, char** value) {
    *value = strdup(app_control->extras.at(key).c_str());
    return platform().call("app_control_get_extra_data", {key});
}

int app_control_get_extra_data_array(app_control_h app_control, const char* key, char*** value, int* length) {
    const auto& values = app_control->arrays.at(key);
    *length = static_cast<int>(values.size());
    *value = static_cast<char**>(malloc(sizeof(char*) * (values.size() + 1)));
    for (size_t i = 0; i < values.size(); ++i) {
        (*value)[i] = strdup(values[i].c_str());
    }
    return platform().call("app_control_get_extra_data_array", {key});
}

int app_control_foreach_extra_data(app_control_h app_control, app_control_extra_data_cb callback, void* user_data) {
    const int result = platform().call("app_control_foreach_extra_data");
    std::vector<std::string> keys;
    for (const auto& [key, value] : app_control->extras) {
        keys.push_back(key);
    }
    for (const auto& [key, values] : app_control->arrays) {
        keys.push_back(key);
    }
    for (const std::string& key : keys) {
        if (!callback(app_control, key.c_str(), user_data)) {
            break;
        }
    }
    return result;
}

int app_control_send_launch_request(app_control_h app_control, app_control_reply_cb callback, void* user_data) {
    const int result = platform().call("app_control_send_launch_request", {app_control->text()});
    if (result == 0) {
        std::lock_guard<std::mutex> lock(stateMutex);
        sent.push_back({*app_control, callback, user_data});
    }
    return result;
}

int app_control_reply_to_launch_request(app_control_h reply, app_control_h, app_control_result_e result) {
    return platform().call("app_control_reply_to_launch_request", {reply->text(), str(static_cast<int>(result))});
}

}  // extern "C"
