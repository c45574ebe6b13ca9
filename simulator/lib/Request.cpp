// SPDX-License-Identifier: Apache-2.0
#include "lib/Request.h"

namespace sim {

namespace {

constexpr char kPath[] = "/org/orvane/Application";
constexpr char kInterface[] = "org.orvane.Application1";

}  // namespace

void sendRequest(Bus& bus, const std::string& application, const Request& request) {
    bus.call(application, kPath, kInterface, "Launch",
             g_variant_new("(ss@a(aybaay)s)", request.operation.c_str(), request.uri.c_str(),
                           packExtras(request.extras), request.token.c_str()));
}

void sendReply(Bus& bus, const Request& request, int result, const Extras& extras) {
    bus.call(request.sender, kPath, kInterface, "Reply",
             g_variant_new("(si@a(aybaay))", request.token.c_str(), result, packExtras(extras)));
}

void sendClose(Bus& bus, const std::string& application) {
    bus.call(application, kPath, kInterface, "Close", nullptr);
}

void sendPortMessage(Bus& bus, const std::string& application, const std::string& port, const Entries& entries) {
    bus.call(application, "/org/orvane/MessagePort", "org.orvane.MessagePort1", "Send",
             g_variant_new("(s@a(ayay)ss)", port.c_str(), packEntries(entries), "", ""));
}

}  // namespace sim
