// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "gio/Connection.h"

namespace gio {

// Facts about the other connections on a bus, each asked of the bus once and kept until the connection leaves the bus
// or the name gets another owner. Use it on the connection's context only: there the bus announces a change before
// anything that it sends later, so what is kept is never older than the message at hand.
class Peers {
public:
    explicit Peers(const Connection& connection) : mConnection(connection) {}

    // By unique name. Nothing if the connection is gone.
    std::optional<uid_t> userOf(const std::string& name);
    std::optional<pid_t> processOf(const std::string& name);
    // The unique name of a well-known name's owner; empty without one.
    std::string ownerOf(const std::string& name);

private:
    using Number = std::optional<std::uint32_t>;
    struct Peer {
        Registration watch;
        Number user;
        Number process;
        std::string owner;
    };
    Peer& find(const std::string& name);
    Number ask(const char* method, const std::string& name, Number Peer::*field);

    const Connection& mConnection;
    std::map<std::string, Peer> mPeers;
};

}  // namespace gio
