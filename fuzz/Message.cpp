// SPDX-License-Identifier: Apache-2.0
// Unchecked GVariant bytes that other applications send over the bus. The first byte selects a request, a reply, or the
// entries of a port message.
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "Entries.h"
#include "appfw/Bundle.h"
#include "appfw/Request.h"

bool operator==(const Extra& one, const Extra& other) {
    return one.array == other.array && one.values == other.values;
}

bool operator==(const bundle_keyval_s& one, const bundle_keyval_s& other) {
    return one.value == other.value;
}

namespace fuzz {
namespace {

struct BytesUnref {
    void operator()(GBytes* bytes) const noexcept { g_bytes_unref(bytes); }
};

gio::Variant variantOf(std::string_view bytes, const char* type) {
    const std::unique_ptr<GBytes, BytesUnref> copy(g_bytes_new(bytes.data(), bytes.size()));
    return gio::Variant(g_variant_new_from_bytes(G_VARIANT_TYPE(type), copy.get(), FALSE));
}

// The value that the receiver reads.
template <typename T>
T sent(const T& value) {
    return gio::Variant::of(value).template as<T>();
}

bool readExtra(app_control_h request, const char* key, void*) noexcept {
    bool array = false;
    require(app_control_is_extra_data_array(request, key, &array) == APP_CONTROL_ERROR_NONE,
            "each key of the walk exists");
    char* value = nullptr;
    const int single = app_control_get_extra_data(request, key, &value);
    require(single == (array ? APP_CONTROL_ERROR_INVALID_DATA_TYPE : APP_CONTROL_ERROR_NONE),
            "an extra is a single value or an array");
    std::free(value);
    char** values = nullptr;
    int length = 0;
    app_control_get_extra_data_array(request, key, &values, &length);
    std::for_each(values, values + length, std::free);
    std::free(values);
    return true;
}

void readRequest(std::string_view bytes) {
    app_control_s request = appfw::toRequest(variantOf(bytes, "(ssa(aybaay)s)"));
    app_control_foreach_extra_data(&request, readExtra, nullptr);
    const auto again = appfw::toExtras(sent(appfw::toWire(request.extras)));
    require(again == request.extras, "extras survive a round trip");
}

void readReply(std::string_view bytes) {
    const auto reply = appfw::toReply(variantOf(bytes, "(sia(aybaay))"));
    require(reply.result >= APP_CONTROL_RESULT_CANCELED && reply.result <= APP_CONTROL_RESULT_APP_STARTED,
            "a reply has a known result");
    const auto again = appfw::toExtras(sent(appfw::toWire(reply.extras)));
    require(again == reply.extras, "extras survive a round trip");
}

void readEntry(const char* key, int, const bundle_keyval_t* entry, void*) noexcept {
    void* value = nullptr;
    size_t size = 0;
    const int code = bundle_keyval_get_basic_val(const_cast<bundle_keyval_t*>(entry), &value, &size);
    require(code == BUNDLE_ERROR_NONE && key != nullptr, "an entry has a key and a value");
    require(size > 0 && static_cast<const char*>(value)[size - 1] == 0, "a value is terminated");
}

void readMessage(std::string_view bytes) {
    bundle_s message = appfw::toBundle(variantOf(bytes, "a(ayay)").as<appfw::Entries>());
    bundle_foreach(&message, readEntry, nullptr);
    const auto again = appfw::toBundle(sent(appfw::toEntries(message)));
    require(again.entries == message.entries, "a message survives a round trip");
}

}  // namespace

void message(std::string_view bytes) {
    switch (bytes.empty() ? 0 : bytes[0]) {
        case 'r':
            return readRequest(bytes.substr(1));
        case 'a':
            return readReply(bytes.substr(1));
        case 'm':
            return readMessage(bytes.substr(1));
    }
}

}  // namespace fuzz
