// Prints what the platform tells a service, one line each.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app_control.h"
#include "service_app.h"

namespace {

bool onCreate(void*) noexcept {
    puts("create");
    return true;
}

void onTerminate(void*) noexcept {
    puts("terminate");
}

bool onExtra(app_control_h request, const char* key, void*) noexcept {
    bool array = false;
    app_control_is_extra_data_array(request, key, &array);
    if (array) {
        char** values = nullptr;
        int length = 0;
        app_control_get_extra_data_array(request, key, &values, &length);
        printf("%s[%d]\n", key, length);
        for (int i = 0; i < length; ++i) {
            std::free(values[i]);
        }
        std::free(values);
    } else {
        char* value = nullptr;
        app_control_get_extra_data(request, key, &value);
        printf("%s=%s\n", key, value);
        std::free(value);
    }
    return true;
}

void onReply(app_control_h, app_control_h reply, app_control_result_e result, void*) noexcept {
    printf("reply %d\n", result);
    app_control_foreach_extra_data(reply, onExtra, nullptr);
}

// The operation "send" asks this service itself, the operation "answer" is answered; the others are only printed.
void onAppControl(app_control_h request, void*) noexcept {
    char* text = nullptr;
    app_control_get_operation(request, &text);
    const std::string operation = text;
    std::free(text);
    printf("operation %s\n", operation.c_str());
    app_control_foreach_extra_data(request, onExtra, nullptr);
    app_control_h other = nullptr;
    app_control_create(&other);
    if (operation == "send") {
        app_control_set_app_id(other, "org.orvane.da-service");
        app_control_set_operation(other, "answer");
        printf("sent %d\n", app_control_send_launch_request(other, onReply, nullptr));
    } else if (operation == "missing") {
        app_control_set_app_id(other, "com.example.nowhere");
        printf("sent %d\n", app_control_send_launch_request(other, nullptr, nullptr));
    } else if (operation == "answer") {
        app_control_add_extra_data(other, "word", "yes");
        app_control_reply_to_launch_request(other, request, APP_CONTROL_RESULT_SUCCEEDED);
    }
    app_control_destroy(other);
}

}  // namespace

int main(int argc, char** argv) {
    service_app_lifecycle_callback_s callbacks{onCreate, onTerminate, onAppControl};
    return service_app_main(argc, argv, &callbacks, nullptr);
}
