// SPDX-License-Identifier: Apache-2.0
// Events of other applications: D-Bus signals, accepted only from the connection that owns the application id.
#include "app_event.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "Bundle.h"
#include "bus/SessionBus.h"
#include "gio/Address.h"
#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"

struct event_handler_s {
    std::string name;
    event_cb callback;
    void* userData;
    gio::Registration subscription;
};

namespace {

constexpr process::Failures<int> kFailures{EVENT_ERROR_IO_ERROR, EVENT_ERROR_OUT_OF_MEMORY};

// Main loop only. Ids are never reused, so work that was posted for a removed handler finds no handler.
struct Handlers {
    std::map<gsize, std::unique_ptr<event_handler_s>> all;
    gsize lastId = 0;
};

// An event is named "event.<application id>.<event>". Empty for any other name.
std::string applicationOf(const std::string& event) {
    constexpr char HEAD[] = "event.";
    const auto end = event.rfind('.');
    if (event.rfind(HEAD, 0) != 0 || end <= sizeof HEAD - 1) {
        return "";
    }
    return event.substr(sizeof HEAD - 1, end - (sizeof HEAD - 1));
}

void call(Handlers& handlers, gsize id, bundle_s& message) {
    const auto found = handlers.all.find(id);
    if (found == handlers.all.end()) {
        return;
    }
    // Copied, because the callback may remove the handler.
    const std::string name = found->second->name;
    const event_cb callback = found->second->callback;
    callback(name.c_str(), &message, found->second->userData);
}

// On the IO thread.
void deliver(Handlers& handlers, gsize id, const gio::Variant& arguments) {
    using Emitted = std::tuple<std::string, appfw::Entries>;
    if (!arguments.is<Emitted>()) {
        return;
    }
    postToMainLoop([&handlers, id, message = appfw::toBundle(std::get<1>(arguments.as<Emitted>()))]() mutable {
        process::contained("event callback", [&] { call(handlers, id, message); });
    });
}

// The subscription names the application, so that GDBus delivers only signals from the owner of that name.
gio::Registration subscribe(Handlers& handlers, gsize id, const std::string& app, const std::string& event) {
    return bus::session().subscribe(
        {app, "/org/orvane/Event", "org.orvane.Event1"}, "Emitted",
        [&handlers, id](const gio::Variant& arguments) {
            process::contained("application event", [&] { deliver(handlers, id, arguments); });
        },
        event);
}

int add(const char* name, event_cb callback, void* userData, event_handler_h* output) {
    const std::string app = name ? applicationOf(name) : "";
    if (callback == nullptr || output == nullptr || !gio::isBusName(app)) {
        return EVENT_ERROR_INVALID_PARAMETER;
    }
    if (!bus::session().isOpen()) {
        return EVENT_ERROR_IO_ERROR;
    }
    auto& handlers = process::shared<Handlers>();
    const gsize id = ++handlers.lastId;
    auto handler = std::make_unique<event_handler_s>(event_handler_s{name, callback, userData, {}});
    handler->subscription = subscribe(handlers, id, app, name);
    *output = handler.get();
    handlers.all[id] = std::move(handler);
    return EVENT_ERROR_NONE;
}

int remove(event_handler_h handler) {
    auto& all = process::shared<Handlers>().all;
    const auto found =
        std::find_if(all.begin(), all.end(), [=](const auto& entry) { return entry.second.get() == handler; });
    if (found == all.end()) {
        return EVENT_ERROR_INVALID_PARAMETER;
    }
    all.erase(found);
    return EVENT_ERROR_NONE;
}

}  // namespace

int event_add_event_handler(const char* event_name, event_cb callback, void* user_data,
                            event_handler_h* event_handler) {
    return process::guarded(kFailures, __func__, [&] { return add(event_name, callback, user_data, event_handler); });
}

int event_remove_event_handler(event_handler_h event_handler) {
    return process::guarded(kFailures, __func__, [&] { return remove(event_handler); });
}
