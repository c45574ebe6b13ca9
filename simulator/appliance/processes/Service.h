// SPDX-License-Identifier: Apache-2.0
// The assistant service of the appliance.
#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"
#include "appliance/sound/Room.h"
#include "gio/Connection.h"
#include "shared/Record.h"

namespace sim {

// Whether the service on this bus reports the property of org.orvane.Status1, "Listening" or "RecognizerReady", as
// true. False while there is no service.
bool serviceStatus(const gio::Connection& session, const char* property);

class Service {
public:
    Service(const Folder& folder, const gio::Connection& session, Record& record, Room& room)
        : mFolder(folder), mSession(session), mRecord(record), mRoom(room) {}

    // Returns when the service listens for the wake word; throws std::runtime_error when it does not. `program`
    // replaces the built one.
    void start(const std::string& program = {});
    // Returns when the recognizer has loaded its models as well. The wake engine restarts just before that, so the
    // service can miss a wake word until then.
    void awaitRecognizer();
    void stop();
    // Sends SIGTERM and returns the exit code, or 128 plus the signal that ended the service.
    int end();
    void kill();
    // Waits for the end of a service that ends by itself. Returns its exit code as end() does.
    int wait() { return mProcess->wait(); }

    bool runs() { return mProcess && mProcess->runs(); }
    pid_t process() const { return mProcess->id(); }
    // All that the services of this appliance logged.
    std::string log() const;
    // Prints the end of the log to standard error.
    void printEndOfLog() const;

private:
    void awaitStart();

    const Folder& mFolder;
    const gio::Connection& mSession;
    Record& mRecord;
    Room& mRoom;
    std::unique_ptr<Process> mProcess;
};

}  // namespace sim
