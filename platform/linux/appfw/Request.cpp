// SPDX-License-Identifier: Apache-2.0
#include "Request.h"

namespace appfw {

GVariant* toBytes(const std::string& text) {
    return g_variant_new_bytestring(text.c_str());
}

std::string fromBytes(GVariant* bytes) {
    return g_variant_get_bytestring(bytes);  // empty when the terminator is missing
}

namespace {

GVariant* toVariant(const std::string& key, const Extra& extra) {
    GVariantBuilder values;
    g_variant_builder_init(&values, G_VARIANT_TYPE("aay"));
    for (const std::string& value : extra.values) {
        g_variant_builder_add_value(&values, toBytes(value));
    }
    return g_variant_new("(@ayb@aay)", toBytes(key), extra.array, g_variant_builder_end(&values));
}

gio::Variant child(GVariant* of, gsize index) {
    return gio::Variant(g_variant_get_child_value(of, index));
}

}  // namespace

GVariant* toVariant(const Extras& extras) {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("a(aybaay)"));
    for (const auto& [key, extra] : extras) {
        g_variant_builder_add_value(&list, toVariant(key, extra));
    }
    return g_variant_builder_end(&list);
}

Extras toExtras(GVariant* list) {
    Extras extras;
    for (gsize i = 0; i < g_variant_n_children(list); ++i) {
        const gio::Variant entry = child(list, i);
        Extra extra;
        extra.array = g_variant_get_boolean(child(entry.get(), 1).get());
        const gio::Variant values = child(entry.get(), 2);
        for (gsize j = 0; j < g_variant_n_children(values.get()); ++j) {
            extra.values.push_back(fromBytes(child(values.get(), j).get()));
        }
        if (!extra.array) {
            extra.values.resize(1);  // a single value is a list of one
        }
        extras[fromBytes(child(entry.get(), 0).get())] = std::move(extra);
    }
    return extras;
}

app_control_s toRequest(GVariant* arguments) {
    const char* operation = nullptr;
    const char* uri = nullptr;
    const char* token = nullptr;
    GVariant* list = nullptr;
    g_variant_get(arguments, "(&s&s@a(aybaay)&s)", &operation, &uri, &list, &token);
    const gio::Variant extras(list);
    app_control_s request;
    request.operation = operation;
    request.uri = uri;
    request.token = token;
    request.extras = toExtras(extras.get());
    return request;
}

namespace {

app_control_result_e resultOf(gint32 number) {
    for (const auto known :
         {APP_CONTROL_RESULT_APP_STARTED, APP_CONTROL_RESULT_SUCCEEDED, APP_CONTROL_RESULT_CANCELED}) {
        if (number == known) {
            return known;
        }
    }
    return APP_CONTROL_RESULT_FAILED;
}

}  // namespace

Reply toReply(GVariant* arguments) {
    const char* token = nullptr;
    gint32 result = 0;
    GVariant* list = nullptr;
    g_variant_get(arguments, "(&si@a(aybaay))", &token, &result, &list);
    const gio::Variant extras(list);
    return {token, resultOf(result), toExtras(extras.get())};
}

}  // namespace appfw
