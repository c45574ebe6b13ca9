// SPDX-License-Identifier: Apache-2.0
// What HTTP carries, as far as a hub needs it: one request after the other on a connection.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "hub-server/Stream.h"

namespace sim::hub {

struct Request {
    std::string method;
    std::string path;
    std::map<std::string, std::string> headers;  // names in small letters
    std::string body;

    std::string header(const std::string& name) const;
};

struct Answer {
    int status;
    std::string body;
    std::string location;  // empty: none
};

class Reader {
public:
    explicit Reader(Stream& stream) : mStream(stream) {}
    // Nothing at the connection's end. Throws std::runtime_error on what is no request or too long.
    std::optional<Request> next();

private:
    bool fill();

    Stream& mStream;
    std::string mPending;
};

std::string textOf(const Answer& answer);

}  // namespace sim::hub
