// SPDX-License-Identifier: Apache-2.0
// Requests and messages to an application.
#pragma once

#include <string>

#include "gio/Connection.h"
#include "shared/Extras.h"

namespace sim {

inline constexpr char kOperationBase[] = "http://orvane.example/appcontrol/operation/";
inline constexpr char kApplicationPath[] = "/org/orvane/Application";
inline constexpr char kApplicationInterface[] = "org.orvane.Application1";
inline constexpr char kPortPath[] = "/org/orvane/MessagePort";
inline constexpr char kPortInterface[] = "org.orvane.MessagePort1";

// A call of org.orvane.Application1.Launch.
struct Request {
    std::string operation;
    std::string uri;
    Extras extras;
    std::string token;   // empty when no reply is wanted
    std::string sender;  // unique bus name; set in received requests

    gio::Variant arguments() const { return gio::Variant::tuple(operation, uri, toWire(extras), token); }
};

// These throw gio::CallError.
void sendRequest(const gio::Connection& bus, const std::string& application, const Request& request);
void sendReply(const gio::Connection& bus, const Request& request, int result, const Extras& extras);
void sendClose(const gio::Connection& bus, const std::string& application);
// Sends a message to a port of the application.
void sendPortMessage(const gio::Connection& bus, const std::string& application, const std::string& port,
                     const Entries& entries);

}  // namespace sim
