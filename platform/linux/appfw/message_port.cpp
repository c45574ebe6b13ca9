// SPDX-License-Identifier: Apache-2.0
#include "message_port.h"

#include <stdexcept>
#include <string>

#include "AppId.h"
#include "Bundle.h"
#include "HungApps.h"
#include "Ports.h"
#include "bus/SessionBus.h"
#include "gio/Address.h"
#include "process/Guard.h"

namespace {

using appfw::Ports;

constexpr process::Failures<int> kFailures{MESSAGE_PORT_ERROR_IO_ERROR, MESSAGE_PORT_ERROR_OUT_OF_MEMORY};

int failureOf(const gio::CallError& error) {
    if (error.name() == Ports::kAccessDenied) {
        return MESSAGE_PORT_ERROR_CERTIFICATE_NOT_MATCH;
    }
    return error.name() == Ports::kPortNotFound || error.hasNoReceiver() ? MESSAGE_PORT_ERROR_PORT_NOT_FOUND
                                                                         : MESSAGE_PORT_ERROR_IO_ERROR;
}

// Short, because the product sends partial results from its main loop.
constexpr int kReplyMs = 200;

// Throws gio::CallError. Does not start the application if it is not running, and does not wait for one that hangs.
gio::Variant callPort(const char* app, const char* method, const gio::Variant& arguments) {
    auto& hung = process::shared<appfw::HungApps>();
    if (hung.contains(app)) {
        throw gio::CallError(std::string(app) + " does not reply");
    }
    try {
        return bus::session().call({app, Ports::kPath, Ports::kInterface}, method, arguments, {kReplyMs, false});
    } catch (const gio::CallError& error) {
        if (error.isTimeout()) {
            hung.add(app);
        }
        throw;
    }
}

bool isName(const char* app, const char* port) {
    return app != nullptr && port != nullptr && gio::isBusName(app) && gio::isUtf8(port);
}

int send(const char* app, const char* port, bundle* message, const std::string& localPort) {
    if (!isName(app, port) || message == nullptr) {
        return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    }
    try {
        callPort(app, "Send", gio::Variant::tuple(port, appfw::toEntries(*message), appfw::ownAppId(), localPort));
        return MESSAGE_PORT_ERROR_NONE;
    } catch (const gio::CallError& error) {
        return failureOf(error);
    }
}

}  // namespace

int message_port_check_trusted_remote_port(const char* remote_app_id, const char* remote_port, bool* exist) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (!isName(remote_app_id, remote_port) || exist == nullptr) {
            return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
        }
        try {
            *exist = std::get<0>(callPort(remote_app_id, "HasPort", gio::Variant::tuple(remote_port)).fields<bool>());
            return MESSAGE_PORT_ERROR_NONE;
        } catch (const gio::CallError& error) {
            return failureOf(error);
        }
    });
}

int message_port_send_trusted_message(const char* remote_app_id, const char* remote_port, bundle* message) {
    return process::guarded(kFailures, __func__, [&] { return send(remote_app_id, remote_port, message, ""); });
}

int message_port_send_trusted_message_with_local_port(const char* remote_app_id, const char* remote_port,
                                                      bundle* message, int trusted_local_port_id) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        const auto name = process::shared<Ports>().nameOf(trusted_local_port_id);
        return name ? send(remote_app_id, remote_port, message, *name) : MESSAGE_PORT_ERROR_INVALID_PARAMETER;
    });
}

int message_port_register_trusted_local_port(const char* trusted_local_port, message_port_trusted_message_cb callback,
                                             void* user_data) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (trusted_local_port == nullptr || *trusted_local_port == 0 || callback == nullptr ||
            !gio::isUtf8(trusted_local_port)) {
            return MESSAGE_PORT_ERROR_INVALID_PARAMETER;
        }
        auto& ports = process::shared<Ports>();
        return ports.serve() ? ports.add(trusted_local_port, callback, user_data) : MESSAGE_PORT_ERROR_IO_ERROR;
    });
}

int message_port_unregister_trusted_local_port(int trusted_local_port_id) {
    return process::guarded(kFailures, __func__, [&]() -> int {
        const bool known = process::shared<Ports>().remove(trusted_local_port_id);
        return known ? MESSAGE_PORT_ERROR_NONE : MESSAGE_PORT_ERROR_PORT_NOT_FOUND;
    });
}
