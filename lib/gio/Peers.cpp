// SPDX-License-Identifier: Apache-2.0
#include "gio/Peers.h"

namespace gio {

// The bus processes requests in order, so the watch is active before it answers the next query.
Peers::Peer& Peers::find(const std::string& name) {
    const auto [found, isNew] = mPeers.try_emplace(name);
    if (isNew) {
        found->second.watch = mConnection.subscribe(
            messageBus(), "NameOwnerChanged", [this, name](const Variant&) { mPeers.erase(name); }, name);
    }
    return found->second;
}

std::optional<std::uint32_t> Peers::ask(const char* method, const std::string& name, Number Peer::*field) {
    Peer& peer = find(name);
    try {
        if (!(peer.*field)) {
            peer.*field =
                std::get<0>(mConnection.call(messageBus(), method, Variant::tuple(name)).fields<std::uint32_t>());
        }
        return peer.*field;
    } catch (const CallError&) {
        mPeers.erase(name);
        return std::nullopt;
    }
}

std::optional<uid_t> Peers::userOf(const std::string& name) {
    return ask("GetConnectionUnixUser", name, &Peer::user);
}

std::optional<pid_t> Peers::processOf(const std::string& name) {
    return ask("GetConnectionUnixProcessID", name, &Peer::process);
}

std::string Peers::ownerOf(const std::string& name) {
    Peer& peer = find(name);
    if (peer.owner.empty()) {
        peer.owner = mConnection.ownerOf(name);
    }
    std::string owner = peer.owner;
    if (owner.empty()) {
        mPeers.erase(name);
    }
    return owner;
}

}  // namespace gio
