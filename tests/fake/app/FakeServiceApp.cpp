// SPDX-License-Identifier: Apache-2.0
#include "fake/app/FakeServiceApp.h"

#include "fake/Platform.h"

namespace {

service_app_lifecycle_callback_s callbacks;
bool entered = false;

const bool registered = fake::platform().addReset([] { entered = false; });

}  // namespace

const service_app_lifecycle_callback_s* fake::lifecycle() {
    return entered ? &callbacks : nullptr;
}

extern "C" int service_app_main(int argc, char**, service_app_lifecycle_callback_s* callback, void* user_data) {
    callbacks = *callback;
    entered = true;
    return fake::platform().call("service_app_main", {fake::str(argc), user_data ? "data" : "null"});
}
