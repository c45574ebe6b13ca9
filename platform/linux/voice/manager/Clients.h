// SPDX-License-Identifier: Apache-2.0
// Applications that registered over D-Bus for the results of certain agents (docs/dbus.md). The IO thread updates the
// list, and the main loop reads it.
#pragma once

#include <string>
#include <vector>

namespace voice {

struct Client {
    std::string busName;  // the unique name of its connection
    int pid = 0;
};

// Accepts registrations from now on. Without a bus, or if another process owns the name, there are no clients.
void serveClients();

// The clients registered for the agent, in the order of their registration.
std::vector<Client> clientsFor(const std::string& agent);

// Sends the result without waiting for the reply.
void deliverResult(const Client& client, const std::string& text, const std::string& json);

}  // namespace voice
