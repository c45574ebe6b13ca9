// SPDX-License-Identifier: Apache-2.0
#include "Util/ConnectionStateListener.h"

namespace Util {

ConnectionStateListener::ConnectionInitializer ConnectionStateListener::mInitializer;

ConnectionStateListener::ConnectionInitializer::ConnectionInitializer() {
    connection_create(&mHandle);
}

ConnectionStateListener::ConnectionInitializer::~ConnectionInitializer() {
    if (mHandle != nullptr) {
        connection_destroy(mHandle);
    }
}

ConnectionStateListener::ConnectionStateListener(connection_type_e type) : mType(type) {
    if (mInitializer.getHandle() != nullptr) {
        connection_set_type_changed_cb(mInitializer.getHandle(), _type_changed_cb, this);
    }
}

ConnectionStateListener::~ConnectionStateListener() {
    if (mInitializer.getHandle() != nullptr) {
        connection_unset_type_changed_cb(mInitializer.getHandle());
    }
}

void ConnectionStateListener::_type_changed_cb(connection_type_e type, void* data) noexcept {
    auto* listener = static_cast<ConnectionStateListener*>(data);
    if (type == listener->mType) {
        return;
    }
    listener->mType = type;
    listener->callAll();
}

}  // namespace Util
