// SPDX-License-Identifier: Apache-2.0
#include "Store.h"

#include <dlog.h>

#include <fstream>
#include <stdexcept>

#include "bus/SessionBus.h"
#include "gio/Connection.h"
#include "process/Guard.h"

namespace settings {

namespace {

constexpr char MEMORY[] = "/memory/";
constexpr char BOOT_ID[] = "/memory/boot-id";

// The dconf service does the writing, and clients reach it over the session bus.
bool busIsThere() {
    try {
        gio::Connection::openShared(G_BUS_TYPE_SESSION, bus::ioThread().context());
        return true;
    } catch (const std::runtime_error& failure) {
        dlog_print(DLOG_ERROR, "orvane-settings", "cannot write or watch settings without a session bus: %s",
                   failure.what());
        return false;
    }
}

std::string bootId() {
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

}  // namespace

Store& Store::get() {
    return process::shared<Store>();
}

Store::Store()
    : mClient(bus::ioThread().context(),
              [this](const std::vector<std::string>& paths) {
                  process::contained("settings change", [&] { mSubscriptions.changed(paths); });
              }),
      mWritable(busIsThere()) {
    forgetAfterRestart();
}

// Without a stored boot id, this is the first run on this appliance, so values that were written earlier are kept.
void Store::forgetAfterRestart() {
    const std::string now = bootId();
    const gio::Variant kept = read(BOOT_ID);
    const bool known = kept && g_variant_is_of_type(kept.get(), G_VARIANT_TYPE_STRING);
    if (!mWritable || now.empty() || (known && now == g_variant_get_string(kept.get(), nullptr))) {
        return;
    }
    if (known) {
        mClient.clearFolder(MEMORY);
    }
    write(BOOT_ID, gio::Variant(g_variant_new_string(now.c_str())).get());
}

std::string Store::pathOf(const char* key) {
    if (key == nullptr || *key == 0 || *key == '/') {
        return "";
    }
    const std::string path = std::string("/") + key;
    return path.back() == '/' || path.find("//") != std::string::npos ? "" : path;
}

bool Store::write(const std::string& path, GVariant* value) {
    return mWritable && mClient.write(path, value);
}

}  // namespace settings
