// SPDX-License-Identifier: Apache-2.0
// Signals, pauses, and a second instance.
#include <unistd.h>

#include "Fault.h"
#include "appliance/environment/Tree.h"

namespace faults {

namespace {

constexpr useconds_t kPauseMicroseconds = 60000000;

void paused(Trial& trial) {
    {
        const Frozen service(trial.service().process());
        usleep(kPauseMicroseconds);
    }
    trial.report("runs");
}

void secondInstance(Trial& trial) {
    const int code = trial.run({sim::builtProgram("service/orvane-da-service")});
    trial.report("the second ends with code " + std::to_string(code));
    if (code == 0) {
        throw std::runtime_error("the second instance ended with code 0");
    }
}

// Standard error is a pipe that nobody reads.
void fullLog(Trial& trial) {
    const std::string pipe = trial.appliance().folder() / "log-pipe";
    trial.startUnder("export ORVANE_LOG=stderr\nmkfifo " + pipe + "\nexec 3<>" + pipe +
                     "\nhead -c 65536 /dev/zero >&3\nexec >&3 2>&3 3>&-");
    sim::until("the service records", [&] { return trial.records(); });
    trial.report("records");
    trial.endStarted();
}

void endIn(Trial& trial, const char* state) {
    trial.report(std::string("SIGTERM in ") + state);
    kill(trial.service().process(), SIGTERM);
    trial.awaitEnd(0, "", 5);
}

void inStandby(Trial& trial) {
    endIn(trial, "standby");
}

void inRecording(Trial& trial) {
    trial.startRecording();
    endIn(trial, "recording");
}

void inProcessing(Trial& trial) {
    trial.startRecording("PTT");
    trial.appliance().say("search for apple pie");
    trial.appliance().control(sim::kUi, "stop");
    trial.appliance().awaitState("Processing");
    endIn(trial, "processing");
}

void inReady(Trial& trial) {
    trial.appliance().control(sim::kUi, "acknowledge", "no");
    trial.startRecording();
    trial.appliance().say("search for apple pie");
    trial.appliance().awaitState("Ready");
    endIn(trial, "ready");
    trial.appliance().control(sim::kUi, "acknowledge", "yes");
}

void inStart(Trial& trial) {
    trial.startUnder("");
    usleep(300000);
    trial.endStarted();
}

void inRefresh(Trial& trial) {
    trial.appliance().hub().faults({{{"kind", "silent"}}});
    trial.appliance().announceProfile();
    endIn(trial, "a profile refresh");
    trial.appliance().hub().faults(nlohmann::json::array());
}

void withSoundFrozen(Trial& trial) {
    const Frozen server(trial.appliance().room().process());
    endIn(trial, "standby with a frozen sound server");
}

}  // namespace

Faults processFaults() {
    return {{"service stopped for 60 s", false, paused},
            {"second instance", true, secondInstance},
            {"log in a full pipe", true, fullLog},
            {"SIGTERM in standby", false, inStandby},
            {"SIGTERM in recording", true, inRecording},
            {"SIGTERM in processing", false, inProcessing},
            {"SIGTERM in ready", false, inReady},
            {"SIGTERM during the start", false, inStart},
            {"SIGTERM during a profile refresh", false, inRefresh},
            {"SIGTERM with a frozen sound server", false, withSoundFrozen}};
}

}  // namespace faults
