// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "gio/Connection.h"

namespace gio {

// Caches facts about the other connections on a bus. Each fact is queried once and kept until the connection leaves the
// bus or the name changes its owner. Use it only on the connection's context: there, the notice of a change arrives
// before any later message, so the cache is never older than the message being handled.
class Peers {
public:
    explicit Peers(const Connection& connection) : mConnection(connection) {}

    // Looks up a connection by its unique name. Empty if the connection is gone.
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
