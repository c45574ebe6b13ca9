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

// Neither is ever destroyed: other threads still call while the process ends.
const Connection& sessionBus() {
    static const auto* instance = new Connection(openSession());
    return *instance;
}

Peers& sessionPeers() {
    static auto* instance = new Peers(sessionBus());
    return *instance;
}

}  // namespace gio
