// SPDX-License-Identifier: Apache-2.0
#include "Util/VConfStateListener.h"

#include <utility>

namespace Util {

namespace {

template <typename T>
bool replace(T& known, T value) {
    return std::exchange(known, value) != value;
}

}  // namespace

VConfStateListener::VConfStateListener(const std::string& key, ValueType type) : mKey(key), mValueType(type) {}

VConfStateListener::VConfStateListener(const std::string& key, int value) : VConfStateListener(key, INT) {
    mIntValue = value;
    subscribe();
}

VConfStateListener::VConfStateListener(const std::string& key, bool value) : VConfStateListener(key, BOOL) {
    mBoolValue = value;
    subscribe();
}

VConfStateListener::VConfStateListener(const std::string& key, double value) : VConfStateListener(key, DOUBLE) {
    mDoubleValue = value;
    subscribe();
}

VConfStateListener::VConfStateListener(const std::string& key, const std::string& value)
    : VConfStateListener(key, STRING) {
    mStringValue = value;
    subscribe();
}

VConfStateListener::~VConfStateListener() {
    vconf_ignore_key_changed(mKey.c_str(), vconfNotifyCb);
}

void VConfStateListener::subscribe() {
    vconf_notify_key_changed(mKey.c_str(), vconfNotifyCb, this);
}

bool VConfStateListener::update(const keynode_t* node) {
    switch (vconf_keynode_get_type(node)) {
        case VCONF_TYPE_STRING: {
            const char* text = vconf_keynode_get_str(node);
            return replace(mStringValue, std::string(text ? text : ""));
        }
        case VCONF_TYPE_INT:
            return replace(mIntValue, vconf_keynode_get_int(node));
        case VCONF_TYPE_DOUBLE:
            return replace(mDoubleValue, vconf_keynode_get_dbl(node));
        case VCONF_TYPE_BOOL:
            return replace(mBoolValue, vconf_keynode_get_bool(node) != 0);
        default:
            return false;
    }
}

void VConfStateListener::vconfNotifyCb(keynode_t* node, void* data) noexcept {
    auto* listener = static_cast<VConfStateListener*>(data);
    if (listener->update(node)) {
        listener->callAll();
    }
}

}  // namespace Util
