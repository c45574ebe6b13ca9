// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include "Fault.h"

namespace faults {

namespace {

constexpr useconds_t kFrozenMicroseconds = 5000000;

void frozen(pid_t process) {
    const Frozen daemon(process);
    usleep(kFrozenMicroseconds);
}

void sessionFrozen(Trial& trial) {
    frozen(trial.appliance().buses().sessionDaemon());
    trial.report("runs");
}

void systemFrozen(Trial& trial) {
    frozen(trial.appliance().buses().systemDaemon());
    trial.report("runs");
}

void networkManagerGone(Trial& trial) {
    trial.appliance().stopNetworkManager();
    trial.appliance().startNetworkManager();
    trial.report("runs");
}

void networkLost(Trial& trial) {
    trial.appliance().setNetwork("none");
    trial.awaitLog("net connection state: 0");
    trial.appliance().control(sim::kUi, "start", "Default");
    trial.awaitState("Error", "WifiOff");
    trial.appliance().setNetwork("wifi");
}

}  // namespace

Faults busFaults() {
    return {{"session bus frozen for 5 s", true, sessionFrozen},
            {"system bus frozen for 5 s", false, systemFrozen},
            {"network manager restarted", false, networkManagerGone},
            {"network lost", true, networkLost}};
}

}  // namespace faults
