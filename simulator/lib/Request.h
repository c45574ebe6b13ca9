// SPDX-License-Identifier: Apache-2.0
// Requests and messages to an application.
#pragma once

#include <string>

#include "lib/Bus.h"

namespace sim {

inline constexpr char kOperationBase[] = "http://orvane.example/appcontrol/operation/";

// A call of org.orvane.Application1.Launch.
struct Request {
    std::string operation;
    std::string uri;
    Extras extras;
    std::string token;   // empty when no reply is wanted
    std::string sender;  // unique bus name; set in received requests
};

// These throw std::runtime_error when the application does not answer.
void sendRequest(Bus& bus, const std::string& application, const Request& request);
void sendReply(Bus& bus, const Request& request, int result, const Extras& extras);
void sendClose(Bus& bus, const std::string& application);
// Sends a message to a port of the application (org.orvane.MessagePort1).
void sendPortMessage(Bus& bus, const std::string& application, const std::string& port, const Entries& entries);

}  // namespace sim
