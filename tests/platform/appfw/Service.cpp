// SPDX-License-Identifier: Apache-2.0
// Prints one line for each callback of the platform. Sends requests and replies when another application requests it.
#include <Ecore.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "app_control.h"
#include "bus/SessionBus.h"
#include "service_app.h"

namespace {

// The id of the application, or the unique name of this connection, which does not depend on the owner of the id.
std::string itself(const std::string& how) {
    return how == "connection" ? bus::session().uniqueName() : how;
}

// Makes an application send a request to another one.
void askLast(const std::string& app) {
    app_control_h request = nullptr;
    app_control_create(&request);
    app_control_set_app_id(request, app.c_str());
    app_control_set_operation(request, "ask");
    app_control_add_extra_data(request, "app", "com.example.other");
    app_control_add_extra_data(request, "do", "late");
    printf("sent %d\n", app_control_send_launch_request(request, nullptr, nullptr));
    app_control_destroy(request);
}

bool onCreate(void*) noexcept {
    puts("create");
    return getenv("SERVICE_GIVES_UP") == nullptr;
}

void onTerminate(void*) noexcept {
    puts("terminate");
    if (const char* how = getenv("SERVICE_ASKS_LAST")) {
        askLast(itself(how));
    }
}

std::string take(char* text) {
    const std::string copy = text ? text : "";
    std::free(text);
    return copy;
}

std::string operationOf(app_control_h request) {
    char* text = nullptr;
    app_control_get_operation(request, &text);
    return take(text);
}

std::string extra(app_control_h request, const char* key) {
    char* text = nullptr;
    app_control_get_extra_data(request, key, &text);
    return take(text);
}

bool onExtra(app_control_h request, const char* key, void*) noexcept {
    bool array = false;
    app_control_is_extra_data_array(request, key, &array);
    if (!array) {
        printf("%s=%s\n", key, extra(request, key).c_str());
        return true;
    }
    char** values = nullptr;
    int length = 0;
    app_control_get_extra_data_array(request, key, &values, &length);
    printf("%s[%d]", key, length);
    for (int i = 0; i < length; ++i) {
        printf(" %s", take(values[i]).c_str());
    }
    puts("");
    std::free(values);
    return true;
}

void onReply(app_control_h request, app_control_h reply, app_control_result_e result, void*) noexcept {
    printf("reply %d to %s\n", result, operationOf(request).c_str());
    app_control_foreach_extra_data(reply, onExtra, nullptr);
}

void addExtras(app_control_h to) {
    const char* list[] = {"a", "", "\xff"};
    app_control_add_extra_data(to, "word", "yes");
    app_control_add_extra_data_array(to, "list", list, 3);
}

// Extras of the request: the application "app", the operation "do", the URI "uri".
void ask(app_control_h request) {
    app_control_h other = nullptr;
    app_control_create(&other);
    app_control_set_app_id(other, extra(request, "app").c_str());
    app_control_set_operation(other, extra(request, "do").c_str());
    app_control_set_uri(other, extra(request, "uri").c_str());
    addExtras(other);
    printf("sent %d\n", app_control_send_launch_request(other, onReply, nullptr));
    app_control_destroy(other);
}

void answer(app_control_h request) {
    app_control_h reply = nullptr;
    app_control_create(&reply);
    addExtras(reply);
    printf("answered %d\n", app_control_reply_to_launch_request(reply, request, APP_CONTROL_RESULT_CANCELED));
    app_control_destroy(reply);
}

Eina_Bool once(void*) noexcept {
    return ECORE_CALLBACK_CANCEL;
}

// EFL always logs an error for ecore_timer_reset() on a deleted timer.
void deleteTimerTwice() {
    Ecore_Timer* timer = ecore_timer_add(60, once, nullptr);
    ecore_timer_del(timer);
    ecore_timer_del(timer);
    ecore_timer_reset(timer);
    puts("deleted");
}

// Carries out the operations "ask", "answer", "delete", and "hang". Only prints the others.
void onAppControl(app_control_h request, void*) noexcept {
    const std::string operation = operationOf(request);
    printf("operation %s\n", operation.c_str());
    app_control_foreach_extra_data(request, onExtra, nullptr);
    if (operation == "ask") {
        ask(request);
    } else if (operation == "answer") {
        answer(request);
    } else if (operation == "delete") {
        deleteTimerTwice();
    } else if (operation == "hang") {
        pause();
    }
}

}  // namespace

int main(int argc, char** argv) {
    setvbuf(stdout, nullptr, _IOLBF, 0);
    service_app_lifecycle_callback_s callbacks{onCreate, onTerminate, onAppControl};
    return service_app_main(argc, argv, &callbacks, nullptr);
}
