// SPDX-License-Identifier: Apache-2.0
// Events of other applications: D-Bus signals, accepted only from the connection that owns the application id.
#include "app_event.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "Bundle.h"
#include "gio/Address.h"
#include "gio/SessionBus.h"
#include "mainloop/MainLoopPost.h"

struct event_handler_s {
    gsize id;
    std::string name;
    event_cb callback;
    void* userData;
    gio::Registration subscription;
};

namespace {

// Main loop only. Ids are never reused, so work that was posted for a removed handler finds no handler.
std::map<gsize, std::unique_ptr<event_handler_s>> handlers;
gsize lastId = 0;

// An event is named "event.<application id>.<event>". Empty for any other name.
std::string applicationOf(const std::string& event) {
    constexpr char HEAD[] = "event.";
    const auto end = event.rfind('.');
    if (event.rfind(HEAD, 0) != 0 || end <= sizeof HEAD - 1) {
        return "";
    }
    return event.substr(sizeof HEAD - 1, end - (sizeof HEAD - 1));
}

void deliver(gsize id, const gio::Variant& arguments) {
    using Emitted = std::tuple<std::string, appfw::Entries>;
    if (!arguments.is<Emitted>()) {
        return;
    }
    postToMainLoop([id, message = appfw::toBundle(std::get<1>(arguments.as<Emitted>()))]() mutable {
        const auto found = handlers.find(id);
        if (found != handlers.end()) {
            // Copied, because the callback may remove the handler.
            const std::string name = found->second->name;
            const event_cb callback = found->second->callback;
            callback(name.c_str(), &message, found->second->userData);
        }
    });
}

}  // namespace

int event_add_event_handler(const char* event_name, event_cb callback, void* user_data,
                            event_handler_h* event_handler) {
    const std::string app = event_name ? applicationOf(event_name) : "";
    if (callback == nullptr || event_handler == nullptr || !gio::isBusName(app)) {
        return EVENT_ERROR_INVALID_PARAMETER;
    }
    if (!gio::sessionBus().isOpen()) {
        return EVENT_ERROR_IO_ERROR;
    }
    auto handler = std::make_unique<event_handler_s>(event_handler_s{++lastId, event_name, callback, user_data, {}});
    // The subscription names the application, so that GDBus delivers only signals from the owner of that name.
    handler->subscription = gio::sessionBus().subscribe(
        {app, "/org/orvane/Event", "org.orvane.Event1"}, "Emitted",
        [id = handler->id](const gio::Variant& arguments) { deliver(id, arguments); }, event_name);
    *event_handler = handler.get();
    handlers[handler->id] = std::move(handler);
    return EVENT_ERROR_NONE;
}

int event_remove_event_handler(event_handler_h event_handler) {
    const auto found = std::find_if(handlers.begin(), handlers.end(),
                                    [=](const auto& entry) { return entry.second.get() == event_handler; });
    if (found == handlers.end()) {
        return EVENT_ERROR_INVALID_PARAMETER;
    }
    handlers.erase(found);
    return EVENT_ERROR_NONE;
}
