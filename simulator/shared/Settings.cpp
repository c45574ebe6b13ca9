// SPDX-License-Identifier: Apache-2.0
#include "shared/Settings.h"

#include <stdexcept>

#include "dconf/Client.h"
#include "gio/IoThread.h"

namespace sim::settings {

namespace {

dconf::Client& client() {
    static const gio::IoThread thread;
    static dconf::Client instance(thread.context(), [](const std::vector<std::string>&) {});
    return instance;
}

template <typename T>
void write(const std::string& key, const T& value) {
    if (!client().writeAndWait("/" + key, gio::Variant::of(value))) {
        throw std::runtime_error("cannot write the setting " + key);
    }
}

template <typename T>
T read(const std::string& key) {
    const gio::Variant value = client().read("/" + key);
    if (!value || !value.is<T>()) {
        throw std::runtime_error("the setting " + key + " is missing or has another type");
    }
    return value.as<T>();
}

}  // namespace

void set(const std::string& key, int value) {
    write(key, value);
}

void set(const std::string& key, bool value) {
    write(key, value);
}

void set(const std::string& key, const std::string& value) {
    write(key, value);
}

void set(const std::string& key, const char* value) {
    set(key, std::string(value));
}

int getInt(const std::string& key) {
    return read<int>(key);
}

bool getBool(const std::string& key) {
    return read<bool>(key);
}

}  // namespace sim::settings
