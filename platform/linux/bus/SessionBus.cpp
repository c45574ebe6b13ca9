// SPDX-License-Identifier: Apache-2.0
#include "bus/SessionBus.h"

#include <stdexcept>

#include "process/Owner.h"

namespace bus {

namespace {

gio::Connection openSession(const gio::Context& context) {
    try {
        return gio::Connection::openShared(G_BUS_TYPE_SESSION, context);
    } catch (const std::runtime_error& failure) {
        return gio::Connection(std::string("there is no session bus: ") + failure.what());
    }
}

struct Session {
    gio::IoThread& thread = ioThread();
    gio::Connection connection = openSession(thread.context());
    gio::Peers peers{connection};
};

}  // namespace

gio::IoThread& ioThread() {
    return process::shared<gio::IoThread>();
}

const gio::Connection& session() {
    return process::shared<Session>().connection;
}

gio::Peers& peers() {
    return process::shared<Session>().peers;
}

}  // namespace bus
