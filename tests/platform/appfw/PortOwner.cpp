// SPDX-License-Identifier: Apache-2.0
// usage: appfw_port_owner ID: an application with the port "partial", which prints the value of each entry that it
// receives.
#include <Ecore.h>

#include <cstdio>

#include "bus/SessionBus.h"
#include "message_port.h"

namespace {

void onEntry(const char*, const int, const bundle_keyval_t* entry, void*) noexcept {
    void* value = nullptr;
    size_t size = 0;
    bundle_keyval_get_basic_val(const_cast<bundle_keyval_t*>(entry), &value, &size);
    puts(static_cast<const char*>(value));
}

void onMessage(int, const char*, const char*, bool, bundle* message, void*) noexcept {
    bundle_foreach(message, onEntry, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    setvbuf(stdout, nullptr, _IOLBF, 0);
    ecore_app_no_system_modules();
    ecore_init();
    message_port_register_trusted_local_port("partial", onMessage, nullptr);
    const gio::OwnedName name = bus::session().ownName(argv[1]);
    puts("ready");
    ecore_main_loop_begin();
    ecore_shutdown();
    return 0;
}
