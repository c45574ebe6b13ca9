// SPDX-License-Identifier: Apache-2.0
// The part of HTTP that the hub needs: requests on one connection, one after the other.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "hub-server/Stream.h"

namespace sim::hub {

struct Request {
    std::string method;
    std::string path;
    std::map<std::string, std::string> headers;  // names in lower case
    std::string body;

    std::string header(const std::string& name) const;
};

struct Answer {
    int status;
    std::string body;
    std::string location;  // empty if there is none
};

class Reader {
public:
    explicit Reader(Stream& stream) : mStream(stream) {}
    // Empty at the end of the connection. Throws std::runtime_error if the request is invalid or too long.
    std::optional<Request> next();

private:
    bool fill();

    Stream& mStream;
    std::string mPending;
};

std::string textOf(const Answer& answer);

}  // namespace sim::hub
