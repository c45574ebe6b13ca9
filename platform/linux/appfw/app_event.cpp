// SPDX-License-Identifier: Apache-2.0
// Events of other applications: D-Bus signals, believed only of the connection that owns the application id.
#include "app_event.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "Bundle.h"
#include "gio/Bus.h"
#include "gio/IoThread.h"
#include "mainloop/MainLoopPost.h"

struct event_handler_s {
    gsize id;
    std::string name;
    event_cb callback;
    void* userData;
    guint subscription;
};

namespace {

// On the main loop, by ids that are never used again: what is posted for a handler that has been removed finds none.
std::map<gsize, std::unique_ptr<event_handler_s>> handlers;
gsize lastId = 0;

// "event.", the application's id, ".", the event's own name; empty when it is not so made.
std::string applicationOf(const std::string& event) {
    constexpr char HEAD[] = "event.";
    const auto end = event.rfind('.');
    if (event.rfind(HEAD, 0) != 0 || end <= sizeof HEAD - 1) {
        return "";
    }
    return event.substr(sizeof HEAD - 1, end - (sizeof HEAD - 1));
}

// The subscription is made for the application's name, so that GDBus lets pass only signals of its owner.
void onSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
              gpointer data) noexcept {
    if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sa(ayay))"))) {
        return;
    }
    const gio::Variant entries(g_variant_get_child_value(arguments, 1));
    postToMainLoop([id = GPOINTER_TO_SIZE(data), message = appfw::toBundle(entries.get())]() mutable {
        const auto found = handlers.find(id);
        if (found != handlers.end()) {
            const event_handler_s handler = *found->second;  // the callback may remove it
            handler.callback(handler.name.c_str(), &message, handler.userData);
        }
    });
}

}  // namespace

int event_add_event_handler(const char* event_name, event_cb callback, void* user_data,
                            event_handler_h* event_handler) {
    const std::string app = event_name ? applicationOf(event_name) : "";
    if (callback == nullptr || event_handler == nullptr || !g_dbus_is_name(app.c_str())) {
        return EVENT_ERROR_INVALID_PARAMETER;
    }
    const gio::Bus& bus = gio::Bus::session();
    if (!bus.isOpen()) {
        return EVENT_ERROR_IO_ERROR;
    }
    auto handler = std::make_unique<event_handler_s>(event_handler_s{++lastId, event_name, callback, user_data, 0});
    gio::IoThread::get().run([&] {
        handler->subscription = g_dbus_connection_signal_subscribe(
            bus.connection(), app.c_str(), "org.orvane.Event1", "Emitted", "/org/orvane/Event", event_name,
            G_DBUS_SIGNAL_FLAGS_NONE, onSignal, GSIZE_TO_POINTER(handler->id), nullptr);
    });
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
    gio::IoThread::get().run(
        [&] { g_dbus_connection_signal_unsubscribe(gio::Bus::session().connection(), event_handler->subscription); });
    handlers.erase(found);
    return EVENT_ERROR_NONE;
}
