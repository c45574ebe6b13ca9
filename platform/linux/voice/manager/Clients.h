// SPDX-License-Identifier: Apache-2.0
// Applications that have asked for the results of certain agents, by D-Bus. docs/dbus.md has the interface. The list is
// kept by the thread that serves the bus and read from the main loop.
#pragma once

#include <string>
#include <vector>

namespace voice {

struct Client {
    std::string busName;  // unique name of its connection
    int pid = 0;
};

// Begins to take registrations; once a process. Without a bus nobody registers.
void serveClients();

// Those that want the agent's results, in the order of their registration.
std::vector<Client> clientsFor(const std::string& agent);

// Hands the result over; does not wait.
void deliverResult(const Client& client, const std::string& text, const std::string& json);

}  // namespace voice
