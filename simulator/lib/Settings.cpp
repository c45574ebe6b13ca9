// SPDX-License-Identifier: Apache-2.0
#include "lib/Settings.h"

#include <dconf.h>

#include <stdexcept>

#include "lib/Pointer.h"

namespace sim::settings {

namespace {

struct ClientRelease {
    void operator()(DConfClient* client) const noexcept { g_object_unref(client); }
};

void write(const std::string& key, GVariant* value) {
    const Pointer<GVariant> kept(g_variant_ref_sink(value));
    const std::unique_ptr<DConfClient, ClientRelease> client(dconf_client_new());
    Fault fault;
    if (!dconf_client_write_sync(client.get(), ("/" + key).c_str(), kept.get(), nullptr, nullptr, fault.out())) {
        throw std::runtime_error("cannot set " + key + ": " + fault.text());
    }
}

Pointer<GVariant> read(const std::string& key, const GVariantType* type) {
    const std::unique_ptr<DConfClient, ClientRelease> client(dconf_client_new());
    Pointer<GVariant> value(dconf_client_read(client.get(), ("/" + key).c_str()));
    if (value == nullptr || g_variant_is_of_type(value.get(), type) == FALSE) {
        throw std::runtime_error("the setting " + key + " is missing or has another type");
    }
    return value;
}

}  // namespace

void set(const std::string& key, int value) {
    write(key, g_variant_new_int32(value));
}

void set(const std::string& key, bool value) {
    write(key, g_variant_new_boolean(value));
}

void set(const std::string& key, const std::string& value) {
    write(key, g_variant_new_string(value.c_str()));
}

void set(const std::string& key, const char* value) {
    set(key, std::string(value));
}

int getInt(const std::string& key) {
    return g_variant_get_int32(read(key, G_VARIANT_TYPE_INT32).get());
}

bool getBool(const std::string& key) {
    return g_variant_get_boolean(read(key, G_VARIANT_TYPE_BOOLEAN).get()) != FALSE;
}

}  // namespace sim::settings
