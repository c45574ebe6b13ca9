// SPDX-License-Identifier: Apache-2.0
#include "fake/data/FakeSettings.h"

#include <device.h>
#include <string.h>
#include <tzplatform_config.h>
#include <vconf.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct keynode_s {
    int type = 0;
    int number = 0;
    double real = 0;
    std::string text;
};

struct connection_s {};

namespace {

struct Subscription {
    std::string key;
    vconf_callback_fn callback;
    void* userData;
};

std::mutex stateMutex;
std::map<std::string, keynode_s> store;
std::vector<Subscription> subscriptions;
connection_s connection;
connection_type_e connectionType = CONNECTION_TYPE_ETHERNET;
connection_type_changed_cb connectionCallback;
void* connectionUserData;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    store.clear();
    subscriptions.clear();
    connectionType = CONNECTION_TYPE_ETHERNET;
    connectionCallback = nullptr;
});

void put(const std::string& key, const keynode_s& node) {
    std::lock_guard<std::mutex> lock(stateMutex);
    store[key] = node;
}

void notify(const std::string& key, keynode_s node) {
    std::vector<Subscription> notified;
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        notified = subscriptions;
    }
    for (const Subscription& subscription : notified) {
        if (subscription.key == key) {
            subscription.callback(&node, subscription.userData);
        }
    }
}

bool read(const char* key, keynode_s& node) {
    std::lock_guard<std::mutex> lock(stateMutex);
    auto found = store.find(key);
    if (found == store.end()) {
        return false;
    }
    node = found->second;
    return true;
}

keynode_s intNode(int value) {
    return {VCONF_TYPE_INT, value, 0, ""};
}

}  // namespace

namespace fake {

void setSetting(const std::string& key, int value) {
    put(key, intNode(value));
}

void setSetting(const std::string& key, const std::string& value) {
    put(key, {VCONF_TYPE_STRING, 0, 0, value});
}

void changeSetting(const std::string& key, int value) {
    setSetting(key, value);
    notify(key, intNode(value));
}

void changeSetting(const std::string& key, bool value) {
    put(key, {VCONF_TYPE_BOOL, value, 0, ""});
    notify(key, {VCONF_TYPE_BOOL, value, 0, ""});
}

void changeSetting(const std::string& key, double value) {
    put(key, {VCONF_TYPE_DOUBLE, 0, value, ""});
    notify(key, {VCONF_TYPE_DOUBLE, 0, value, ""});
}

void changeSetting(const std::string& key, const std::string& value) {
    setSetting(key, value);
    notify(key, {VCONF_TYPE_STRING, 0, 0, value});
}

void changeSettingToUnknownType(const std::string& key) {
    notify(key, {99, 1, 0, ""});
}

int setting(const std::string& key) {
    keynode_s node;
    return read(key.c_str(), node) ? node.number : -1;
}

void setConnection(connection_type_e type) {
    std::lock_guard<std::mutex> lock(stateMutex);
    connectionType = type;
}

void changeConnection(connection_type_e type) {
    setConnection(type);
    if (connectionCallback != nullptr) {
        connectionCallback(type, connectionUserData);
    }
}

}  // namespace fake

extern "C" {

int vconf_get_int(const char* key, int* value) {
    keynode_s node;
    const int result = platform().call("vconf_get_int", {key});
    if (!read(key, node)) {
        return -1;
    }
    *value = node.number;
    return result;
}

int vconf_get_bool(const char* key, int* value) {
    keynode_s node;
    const int result = platform().call("vconf_get_bool", {key});
    if (!read(key, node)) {
        return -1;
    }
    *value = node.number;
    return result;
}

char* vconf_get_str(const char* key) {
    keynode_s node;
    platform().call("vconf_get_str", {key});
    return read(key, node) ? strdup(node.text.c_str()) : nullptr;
}

int vconf_set_int(const char* key, int value) {
    const int result = platform().call("vconf_set_int", {key, str(value)});
    if (result == 0) {
        fake::changeSetting(key, value);
    }
    return result;
}

int vconf_set_bool(const char* key, int value) {
    const int result = platform().call("vconf_set_bool", {key, str(value)});
    if (result == 0) {
        fake::changeSetting(key, value != 0);
    }
    return result;
}

int vconf_notify_key_changed(const char* key, vconf_callback_fn callback, void* user_data) {
    std::lock_guard<std::mutex> lock(stateMutex);
    subscriptions.push_back({key, callback, user_data});
    return platform().call("vconf_notify_key_changed", {key});
}

int vconf_ignore_key_changed(const char* key, vconf_callback_fn callback) {
    std::lock_guard<std::mutex> lock(stateMutex);
    for (auto it = subscriptions.begin(); it != subscriptions.end(); ++it) {
        if (it->key == key && it->callback == callback) {
            subscriptions.erase(it);
            break;
        }
    }
    return platform().call("vconf_ignore_key_changed", {key});
}

int vconf_keynode_get_type(const keynode_t* node) {
    return node->type;
}
int vconf_keynode_get_int(const keynode_t* node) {
    return node->number;
}
int vconf_keynode_get_bool(const keynode_t* node) {
    return node->number;
}
double vconf_keynode_get_dbl(const keynode_t* node) {
    return node->real;
}
const char* vconf_keynode_get_str(const keynode_t* node) {
    return node->text.c_str();
}

int connection_create(connection_h* handle) {
    const int result = platform().call("connection_create");
    if (result == 0) {
        *handle = &connection;
    }
    return result;
}

int connection_destroy(connection_h) {
    return platform().call("connection_destroy");
}

int connection_get_type(connection_h, connection_type_e* type) {
    const int result = platform().call("connection_get_type");
    std::lock_guard<std::mutex> lock(stateMutex);
    *type = connectionType;
    return result;
}

int connection_set_type_changed_cb(connection_h, connection_type_changed_cb callback, void* user_data) {
    connectionCallback = callback;
    connectionUserData = user_data;
    return platform().call("connection_set_type_changed_cb");
}

int connection_unset_type_changed_cb(connection_h) {
    connectionCallback = nullptr;
    return platform().call("connection_unset_type_changed_cb");
}

int device_touchkey_set_mic_led(bool on) {
    return platform().call("device_touchkey_set_mic_led", {str(int{on})});
}

int display_change_state(display_state_e state) {
    return platform().call("display_change_state", {str(static_cast<int>(state))});
}

const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path) {
    thread_local std::string made;
    platform().call("tzplatform_mkpath", {str(static_cast<int>(id)), path});
    if (id != 28) {
        return nullptr;
    }
    made = std::string("/data/") + path;
    return made.c_str();
}

}  // extern "C"
