// SPDX-License-Identifier: Apache-2.0
#include <net_connection.h>

#include "Handles.h"
#include "process/Guard.h"

namespace {

using network::Handles;

constexpr process::Failures<int> kFailures{CONNECTION_ERROR_OPERATION_FAILED, CONNECTION_ERROR_OUT_OF_MEMORY};

}  // namespace

extern "C" {

int connection_create(connection_h* connection) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (connection == nullptr) {
            return CONNECTION_ERROR_INVALID_PARAMETER;
        }
        *connection = process::shared<Handles>().create();
        return CONNECTION_ERROR_NONE;
    });
}

int connection_destroy(connection_h connection) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        const bool known = process::shared<Handles>().destroy(connection);
        return known ? CONNECTION_ERROR_NONE : CONNECTION_ERROR_INVALID_PARAMETER;
    });
}

int connection_get_type(connection_h connection, connection_type_e* type) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (connection == nullptr || type == nullptr) {
            return CONNECTION_ERROR_INVALID_PARAMETER;
        }
        *type = process::shared<Handles>().type();
        return CONNECTION_ERROR_NONE;
    });
}

int connection_set_type_changed_cb(connection_h connection, connection_type_changed_cb callback, void* user_data) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (connection == nullptr || callback == nullptr) {
            return CONNECTION_ERROR_INVALID_PARAMETER;
        }
        process::shared<Handles>().setCallback(connection, callback, user_data);
        return CONNECTION_ERROR_NONE;
    });
}

int connection_unset_type_changed_cb(connection_h connection) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (connection == nullptr) {
            return CONNECTION_ERROR_INVALID_PARAMETER;
        }
        process::shared<Handles>().setCallback(connection, nullptr, nullptr);
        return CONNECTION_ERROR_NONE;
    });
}

}  // extern "C"
