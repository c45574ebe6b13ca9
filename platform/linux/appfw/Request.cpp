// SPDX-License-Identifier: Apache-2.0
#include "Request.h"

namespace appfw {

namespace {

app_control_result_e resultOf(std::int32_t number) {
    for (const auto known :
         {APP_CONTROL_RESULT_APP_STARTED, APP_CONTROL_RESULT_SUCCEEDED, APP_CONTROL_RESULT_CANCELED}) {
        if (number == known) {
            return known;
        }
    }
    return APP_CONTROL_RESULT_FAILED;
}

}  // namespace

WireExtras toWire(const Extras& extras) {
    WireExtras wire;
    for (const auto& [key, extra] : extras) {
        std::vector<gio::Bytes> values;
        for (const std::string& value : extra.values) {
            values.push_back({value});
        }
        wire.emplace_back(gio::Bytes{key}, extra.array, std::move(values));
    }
    return wire;
}

Extras toExtras(const WireExtras& wire) {
    Extras extras;
    for (const auto& [key, array, values] : wire) {
        Extra extra{array, {}};
        for (const gio::Bytes& value : values) {
            extra.values.push_back(value.text);
        }
        if (!array) {
            extra.values.resize(1);  // a single value is stored as a list of one
        }
        extras[key.text] = std::move(extra);
    }
    return extras;
}

app_control_s toRequest(const gio::Variant& arguments) {
    const auto [operation, uri, extras, token] = arguments.fields<std::string, std::string, WireExtras, std::string>();
    app_control_s request;
    request.operation = operation;
    request.uri = uri;
    request.token = token;
    request.extras = toExtras(extras);
    return request;
}

Reply toReply(const gio::Variant& arguments) {
    const auto [token, result, extras] = arguments.fields<std::string, std::int32_t, WireExtras>();
    return {token, resultOf(result), toExtras(extras)};
}

}  // namespace appfw
