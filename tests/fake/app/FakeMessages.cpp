// SPDX-License-Identifier: Apache-2.0
// Bundles, message ports, and events.
#include "fake/app/FakeMessages.h"

#include <app_event.h>
#include <message_port.h>

#include <atomic>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct event_handler_s {
    std::string name;
    event_cb callback;
    void* userData;
};

namespace {

std::atomic<int> bundles{0};
std::atomic<bool> portExists{true};
message_port_trusted_message_cb portCallback;
void* portUserData;
std::vector<event_handler_h> handlers;

const bool registered = platform().addReset([] {
    bundles = 0;
    portExists = true;
    portCallback = nullptr;
});

std::string textOf(const bundle* message) {
    std::string text;
    for (const auto& [key, entry] : message->entries) {
        text += (text.empty() ? "" : " ") + key + "=" + entry.value;
    }
    return text;
}

}  // namespace

namespace fake {

void setPortExists(bool exists) {
    portExists = exists;
}

void receiveMessage(bundle* message, const char* remoteAppId, const char* remotePort) {
    portCallback(1, remoteAppId, remotePort, true, message, portUserData);
}

void emitEvent(const std::string& name) {
    for (event_handler_h handler : std::vector<event_handler_h>(handlers)) {
        if (handler->name == name) {
            handler->callback(name.c_str(), nullptr, handler->userData);
        }
    }
}

int openBundles() {
    return bundles;
}

}  // namespace fake

extern "C" {

bundle* bundle_create(void) {
    if (platform().call("bundle_create") != 0) {
        return nullptr;
    }
    ++bundles;
    return new bundle_s;
}

int bundle_free(bundle* b) {
    platform().call("bundle_free");
    --bundles;
    delete b;
    return 0;
}

int bundle_add_str(bundle* b, const char* key, const char* text) {
    const int result = platform().call("bundle_add_str", {key, text});
    b->entries.push_back({key, {BUNDLE_TYPE_STR, text}});
    return result;
}

void bundle_foreach(bundle* b, bundle_iterator_t iter, void* user_data) {
    for (const auto& [key, entry] : b->entries) {
        iter(key.c_str(), entry.type, &entry, user_data);
    }
}

int bundle_keyval_get_basic_val(bundle_keyval_t* kv, void** val, size_t* size) {
    *val = kv->value.data();
    *size = kv->value.size() + 1;
    return 0;
}

int message_port_check_trusted_remote_port(const char* app, const char* port, bool* exist) {
    *exist = portExists;
    return platform().call("message_port_check_trusted_remote_port", {app, port});
}

int message_port_send_trusted_message(const char* app, const char* port, bundle* message) {
    return platform().call("message_port_send_trusted_message", {app, port, textOf(message)});
}

int message_port_send_trusted_message_with_local_port(const char* app, const char* port, bundle* message, int id) {
    return platform().call("message_port_send_trusted_message_with_local_port", {app, port, textOf(message), str(id)});
}

int message_port_register_trusted_local_port(const char* port, message_port_trusted_message_cb callback,
                                             void* user_data) {
    portCallback = callback;
    portUserData = user_data;
    return platform().call("message_port_register_trusted_local_port", {port}, 1);
}

int message_port_unregister_trusted_local_port(int id) {
    return platform().call("message_port_unregister_trusted_local_port", {str(id)});
}

int event_add_event_handler(const char* name, event_cb callback, void* user_data, event_handler_h* handler) {
    const int result = platform().call("event_add_event_handler", {name});
    if (result == 0) {
        *handler = new event_handler_s{name, callback, user_data};
        handlers.push_back(*handler);
    }
    return result;
}

int event_remove_event_handler(event_handler_h handler) {
    for (auto it = handlers.begin(); it != handlers.end(); ++it) {
        if (*it == handler) {
            handlers.erase(it);
            break;
        }
    }
    delete handler;
    return platform().call("event_remove_event_handler");
}

}  // extern "C"
