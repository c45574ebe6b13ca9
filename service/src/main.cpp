// SPDX-License-Identifier: Apache-2.0
#include <service_app.h>

#include "Service.h"
#include "Util/Log.h"

namespace {

OrvaneDA::Service* service = nullptr;

bool _create(void*) noexcept {
    LOGI("_create");
    return service->onCreate();
}

void _app_control(app_control_h request, void*) noexcept {
    LOGI("app_control");
    service->onAppControl(request);
}

void _terminate(void*) noexcept {
    LOGI("_terminate");
    service->onTerminate();
    delete service;
    service = nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    LOGI("main");
    Util::printVersion();
    service = new OrvaneDA::Service;
    service_app_lifecycle_callback_s callbacks{_create, _terminate, _app_control};
    LOGI("main----2");
    return service_app_main(argc, argv, &callbacks, nullptr);
}
