// SPDX-License-Identifier: Apache-2.0
// Lifecycle of the service. D-Bus calls arrive on the IO thread and are queued for the main loop. A signal or the Close
// method ends the main loop.
#include "service_app.h"

#include <Ecore.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "AppId.h"
#include "EflLog.h"
#include "Limits.h"
#include "Replies.h"
#include "Request.h"
#include "RequestLimit.h"
#include "Watchdog.h"
#include "bus/Admission.h"
#include "bus/SessionBus.h"
#include "dbus/Interfaces.h"
#include "dlog.h"
#include "mainloop/MainLoopPost.h"
#include "process/Guard.h"
#include "status/Notify.h"
#include "status/Problems.h"
#include "status/Status.h"

namespace {

constexpr char APP_ID[] = "org.orvane.da-service";
constexpr char HELP[] =
    "Usage: orvane-da-service [--help]\n"
    "The voice-assistant service of the appliance. It runs until it receives SIGTERM, SIGINT, or a request to close.\n"
    "\n"
    "Environment:\n"
    "  DBUS_SESSION_BUS_ADDRESS  the bus that connects the applications\n"
    "  DBUS_SYSTEM_BUS_ADDRESS   the bus of NetworkManager\n"
    "  PULSE_SERVER              the sound server\n"
    "  ORVANE_DATA_ROOT          directory of the program's data (voice/data/...)\n"
    "  ORVANE_DB_DIR             directory of the local databases\n"
    "  ORVANE_HUB_CA             certificate authorities (PEM) to trust for the hub instead of the system's\n"
    "  ORVANE_LOG                journal, stderr, or off\n"
    "  ORVANE_SYSFS_ROOT         directory that contains class/leds, instead of /sys\n"
    "  ORVANE_MODEL_ROOT         directory of the speech models\n"
    "  ORVANE_MODEL_MANIFEST     checksums of the speech models\n"
    "  ORVANE_AUDIO_REPLAY       sound file to use instead of the microphone\n"
    "  ORVANE_AUDIO_REPLAY_PACE  realtime or fast\n"
    "  ORVANE_WAKEUP_RECORDINGS  directory for recordings of the sound before each wake-word detection\n"
    "\n"
    "Exit status:\n"
    "  0  after a signal or a request to close\n"
    "  1  if the service cannot start\n"
    "  2  for an unknown option\n"
    "  3  if the session bus goes away\n";
constexpr int BUS_LOST = 3;

struct App {
    service_app_lifecycle_callback_s* callbacks;
    void* userData;
    std::shared_ptr<appfw::RequestLimit> limit;
};

app_control_s requestOf(const gio::MethodCall& call) {
    app_control_s request = appfw::toRequest(call.arguments());
    request.appId = APP_ID;
    request.sender = call.sender();
    return request;
}

void quit() {
    postToMainLoop(ecore_main_loop_quit);
}

Eina_Bool onSignal(void*, int, void*) noexcept {
    ecore_main_loop_quit();
    return ECORE_CALLBACK_DONE;
}

void onLaunch(const App& app, gio::MethodCall& call) {
    const auto pending = app.limit->accept(call.sender(), appfw::RequestLimit::Clock::now());
    if (!pending) {
        return call.fail("org.orvane.Error.TooManyRequests", "the sender must wait before its next request");
    }
    call.reply();
    postToMainLoop([app, pending, request = requestOf(call)] {
        process::contained("request callback", [&] {
            app_control_s copy = request;
            app.callbacks->app_control(&copy, app.userData);
        });
    });
}

// Requests wait for the main loop, and therefore for the create callback to finish. Each call is answered before it is
// carried out, so that Close is answered before the loop can end.
void onCall(const App& app, gio::MethodCall& call) {
    if (!bus::admits(call)) {
        return;
    }
    if (call.method() == "Launch") {
        return onLaunch(app, call);
    }
    call.reply();
    if (call.method() == "Reply") {
        appfw::Reply reply = appfw::toReply(call.arguments());
        process::shared<appfw::Replies>().take(reply.token, reply.result, std::move(reply.extras));
    } else {
        quit();
    }
}

// The service's objects and name on the bus while it runs.
struct Presence {
    gio::Registration object;
    gio::Registration status;
    gio::Registration loss;
    gio::OwnedName name;
    int exitCode = EXIT_SUCCESS;  // main loop only
};

bool refuse(const std::string& reason) {
    fprintf(stderr, "%s: %s\n", APP_ID, reason.c_str());
    return false;
}

// Exports the object before it acquires the name, so that no request finds the name without the object.
bool join(const App& app, Presence& presence) {
    const gio::Connection& bus = bus::session();
    if (!bus.isOpen()) {
        return refuse(bus.whyNot() + " (set DBUS_SESSION_BUS_ADDRESS to its address)");
    }
    try {
        presence.object = bus.exportObject("/org/orvane/Application", dbus::interface("org.orvane.Application1"),
                                           [app](gio::MethodCall& call) { onCall(app, call); });
        presence.status = process::shared<status::Status>().exportOn(bus);
        presence.name = bus.ownName(APP_ID);
    } catch (const std::runtime_error& error) {
        return refuse(error.what());
    }
    if (!presence.name) {
        return refuse("the service runs already on this bus");
    }
    appfw::setOwnAppId(APP_ID);
    presence.loss = bus.onClosed([&presence] {
        process::contained("loss of the session bus", [&] {
            dlog_print(DLOG_ERROR, "orvane-appfw", "the session bus has gone; the service ends");
            postToMainLoop([&presence] {
                presence.exitCode = BUS_LOST;
                ecore_main_loop_quit();
            });
        });
    });
    return bus.isOpen() || refuse("the session bus has gone");
}

int run(const App& app) {
    // Ecore would feed the watchdog itself, and would not notice that another thread hangs.
    const auto watchdogLimit = status::takeWatchdogLimit();
    ecore_app_no_system_modules();
    if (ecore_init() == 0) {
        fprintf(stderr, "%s: cannot set up the main loop\n", APP_ID);
        return EXIT_FAILURE;
    }
    appfw::logEflErrors();
    ecore_event_handler_add(ECORE_EVENT_SIGNAL_EXIT, onSignal, nullptr);
    Presence presence;
    const bool created = join(app, presence) && app.callbacks->create(app.userData);
    if (created) {
        status::notifyManager("READY=1\nSTATUS=" + process::shared<status::Problems>().text());
        appfw::startWatchdog(watchdogLimit);
        ecore_main_loop_begin();
        status::notifyManager("STOPPING=1");
    }
    presence.name.releaseName();  // so that new requests start the service again
    if (created) {
        app.callbacks->terminate(app.userData);
    }
    bus::session().flush();  // sends the reply to Close and the callbacks' last messages
    closeMainLoopPost();
    ecore_shutdown();
    return created ? presence.exitCode : EXIT_FAILURE;
}

}  // namespace

int service_app_main(int argc, char** argv, service_app_lifecycle_callback_s* callback, void* user_data) {
    if (argc > 1 && strcmp(argv[1], "--help") == 0) {
        fputs(HELP, stdout);
        return EXIT_SUCCESS;
    }
    if (argc > 1) {
        fprintf(stderr, "orvane-da-service: unknown option %s; see --help\n", argv[1]);
        return 2;
    }
    const std::string limit = appfw::insufficientLimit();
    if (!limit.empty()) {
        refuse("cannot start: " + limit);
        return EXIT_FAILURE;
    }
    // Deliberately not a Call: it lasts as long as the process, and Owner::end() would wait for it.
    int code = EXIT_FAILURE;
    process::contained(__func__, [&] { code = run({callback, user_data, std::make_shared<appfw::RequestLimit>()}); });
    return code;
}
