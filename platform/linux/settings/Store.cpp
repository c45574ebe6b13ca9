// SPDX-License-Identifier: Apache-2.0
#include "Store.h"

#include <dlog.h>

#include <fstream>

namespace settings {

namespace {

constexpr char MEMORY[] = "/memory/";
constexpr char BOOT_ID[] = "/memory/boot-id";

// dconf's service writes, and it is reached over the session bus.
bool busIsThere() {
    gio::Error error;
    const gio::Object<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.out()));
    if (bus == nullptr) {
        dlog_print(DLOG_ERROR, "orvane-settings", "settings cannot be written or watched without a session bus: %s",
                   error.message().c_str());
        return false;
    }
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    return true;
}

std::string bootId() {
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

}  // namespace

Store& Store::get() {
    // Never destroyed: changes come until the process ends.
    static Store* instance = new Store;
    return *instance;
}

Store::Store()
    : mClient(new dconf::Client([this](const std::vector<std::string>& paths) { mSubscriptions.changed(paths); })),
      mWritable(busIsThere()) {
    forgetAfterRestart();
}

// What was written before any process of ours ever ran here is kept: it is what somebody prepared.
void Store::forgetAfterRestart() {
    const std::string now = bootId();
    const gio::Variant kept = read(BOOT_ID);
    const bool known = kept != nullptr && g_variant_is_of_type(kept.get(), G_VARIANT_TYPE_STRING);
    if (!mWritable || now.empty() || (known && now == g_variant_get_string(kept.get(), nullptr))) {
        return;
    }
    if (known) {
        mClient->clearFolder(MEMORY);
    }
    write(BOOT_ID, g_variant_new_string(now.c_str()));
}

std::string Store::pathOf(const char* key) {
    if (key == nullptr || *key == 0 || *key == '/') {
        return "";
    }
    const std::string path = std::string("/") + key;
    return path.back() == '/' || path.find("//") != std::string::npos ? "" : path;
}

bool Store::write(const std::string& path, GVariant* value) {
    const gio::Variant owned = gio::sink(value);
    return mWritable && mClient->write(path, owned.get());
}

}  // namespace settings
