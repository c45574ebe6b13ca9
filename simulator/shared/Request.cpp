// SPDX-License-Identifier: Apache-2.0
#include "shared/Request.h"

namespace sim {

void sendRequest(const gio::Connection& bus, const std::string& application, const Request& request) {
    bus.call({application, kApplicationPath, kApplicationInterface}, "Launch", request.arguments());
}

void sendReply(const gio::Connection& bus, const Request& request, int result, const Extras& extras) {
    bus.call({request.sender, kApplicationPath, kApplicationInterface}, "Reply",
             gio::Variant::tuple(request.token, result, toWire(extras)));
}

void sendClose(const gio::Connection& bus, const std::string& application) {
    bus.call({application, kApplicationPath, kApplicationInterface}, "Close");
}

void sendPortMessage(const gio::Connection& bus, const std::string& application, const std::string& port,
                     const Entries& entries) {
    bus.call({application, kPortPath, kPortInterface}, "Send",
             gio::Variant::tuple(port, toWire(entries), std::string(), std::string()));
}

}  // namespace sim
