// SPDX-License-Identifier: Apache-2.0
#include "gio/SessionBus.h"

#include <stdexcept>

#include "gio/IoThread.h"

namespace gio {

namespace {

Connection openSession() {
    try {
        return Connection::openShared(G_BUS_TYPE_SESSION, IoThread::get().context());
    } catch (const std::runtime_error& failure) {
        return Connection(std::string("there is no session bus: ") + failure.what());
    }
}

}  // namespace

// Never destroyed: other threads may still use them while the process exits.
const Connection& sessionBus() {
    static const auto* instance = new Connection(openSession());
    return *instance;
}

Peers& sessionPeers() {
    static auto* instance = new Peers(sessionBus());
    return *instance;
}

}  // namespace gio
