// SPDX-License-Identifier: Apache-2.0
// Life cycle of the service: D-Bus calls arrive on the IO thread and are queued for the main loop, which a signal or
// Close ends.
#include "service_app.h"

#include <Ecore.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "AppId.h"
#include "Replies.h"
#include "Request.h"
#include "dlog.h"
#include "gio/Bus.h"
#include "mainloop/MainLoopPost.h"

namespace {

constexpr char APP_ID[] = "org.orvane.da-service";
constexpr char DESCRIPTION[] =
    "<node><interface name='org.orvane.Application1'>"
    "<method name='Launch'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/><arg type='s' direction='in'/></method>"
    "<method name='Reply'><arg type='s' direction='in'/><arg type='i' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/></method><method name='Close'/></interface></node>";
constexpr char HELP[] =
    "Usage: orvane-da-service [--help]\n"
    "The voice-assistant service of the appliance. It runs until SIGTERM, SIGINT or a request to close.\n"
    "\n"
    "Environment:\n"
    "  DBUS_SESSION_BUS_ADDRESS  the bus of the applications\n"
    "  DBUS_SYSTEM_BUS_ADDRESS   the bus of NetworkManager\n"
    "  PULSE_SERVER              the sound server\n"
    "  ORVANE_DATA_ROOT          folder of the program's data (voice/data/...)\n"
    "  ORVANE_DB_DIR             folder of the local databases\n"
    "  ORVANE_HUB_CA             authorities (PEM) to trust for the hub server instead of the machine's\n"
    "  ORVANE_LOG                journal, stderr or off\n"
    "  ORVANE_SYSFS_ROOT         where class/leds is looked for instead of /sys\n"
    "  ORVANE_MODEL_ROOT         folder of the speech models\n"
    "  ORVANE_AUDIO_REPLAY       sound file that is heard instead of the microphone\n"
    "  ORVANE_AUDIO_REPLAY_PACE  realtime or fast\n"
    "  ORVANE_WAKEUP_RECORDINGS  folder that keeps the sound before each wake-up\n";

struct App {
    service_app_lifecycle_callback_s* callbacks;
    void* userData;
};

app_control_s requestOf(const char* sender, GVariant* arguments) {
    app_control_s request = appfw::toRequest(arguments);
    request.appId = APP_ID;
    request.sender = sender;
    return request;
}

void quit() {
    postToMainLoop(ecore_main_loop_quit);
}

Eina_Bool onSignal(void*, int, void*) noexcept {
    ecore_main_loop_quit();
    return ECORE_CALLBACK_DONE;
}

// What comes before the loop runs waits for it, and so for the end of the create callback.
void onCall(const App& app, const char* sender, const char* method, GVariant* arguments) {
    if (strcmp(method, "Launch") == 0) {
        postToMainLoop([app, request = requestOf(sender, arguments)] {
            app_control_s copy = request;
            app.callbacks->app_control(&copy, app.userData);
        });
    } else if (strcmp(method, "Reply") == 0) {
        appfw::Reply reply = appfw::toReply(arguments);
        appfw::takeReply(reply.token, reply.result, std::move(reply.extras));
    } else {
        quit();
    }
}

// Served before the name is owned, so that no request finds the name without the object.
bool join(const App& app) {
    const gio::Bus& bus = gio::Bus::session();
    if (!bus.isOpen()) {
        fprintf(stderr, "%s: %s (DBUS_SESSION_BUS_ADDRESS names it)\n", APP_ID, bus.whyNot().c_str());
        return false;
    }
    const bool served = bus.serve(
        "/org/orvane/Application", DESCRIPTION,
        [app](const char* sender, const char* method, GVariant* arguments, GDBusMethodInvocation* invocation) {
            // A method's arguments end with its invocation; Close is answered before the loop can end.
            const gio::Variant kept(g_variant_ref(arguments));
            const std::string caller = sender;
            const std::string called = method;
            g_dbus_method_invocation_return_value(invocation, nullptr);
            onCall(app, caller.c_str(), called.c_str(), kept.get());
        });
    if (!served) {
        return false;  // logged there
    }
    gio::Error error;
    if (!bus.own(APP_ID, error)) {
        fprintf(stderr, "%s: %s\n", APP_ID, error ? error.message().c_str() : "the service runs already on this bus");
        return false;
    }
    appfw::setOwnAppId(APP_ID);
    bus.whenLost([] {
        dlog_print(DLOG_ERROR, "orvane-appfw", "the session bus has gone; the service ends");
        quit();
    });
    return true;
}

// Deleting a timer that has ended by itself is harmless, but it is three errors to EFL, two of them of its objects in
// general.
bool isOfAnEndedTimer(const std::string& function) {
    return function == "ecore_timer_del" || function == "efl_data_scope_safe_get" || function == "efl_unref";
}

// Any thread.
void logEfl(const Eina_Log_Domain*, Eina_Log_Level, const char*, const char* function, int, const char* format, void*,
            va_list arguments) noexcept {
    if (!isOfAnEndedTimer(function)) {
        char text[1024];
        vsnprintf(text, sizeof text, format, arguments);
        dlog_print(DLOG_ERROR, "orvane-appfw", "%s: %s", function, text);
    }
}

int run(const App& app) {
    ecore_app_no_system_modules();
    if (ecore_init() == 0) {
        fprintf(stderr, "%s: the main loop cannot be set up\n", APP_ID);
        return EXIT_FAILURE;
    }
    eina_log_print_cb_set(logEfl, nullptr);
    ecore_event_handler_add(ECORE_EVENT_SIGNAL_EXIT, onSignal, nullptr);
    const bool created = join(app) && app.callbacks->create(app.userData);
    if (created) {
        ecore_main_loop_begin();
    }
    gio::Bus::session().giveUp(APP_ID);  // so that requests start the service anew
    if (created) {
        app.callbacks->terminate(app.userData);
    }
    gio::Bus::session().flush();  // the answer to Close, and what the callbacks sent last
    closeMainLoopPost();
    ecore_shutdown();
    return created ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int service_app_main(int argc, char** argv, service_app_lifecycle_callback_s* callback, void* user_data) {
    if (argc > 1 && strcmp(argv[1], "--help") == 0) {
        fputs(HELP, stdout);
        return EXIT_SUCCESS;
    }
    if (argc > 1) {
        fprintf(stderr, "orvane-da-service: unknown option %s; --help tells the options\n", argv[1]);
        return 2;
    }
    return run({callback, user_data});
}
