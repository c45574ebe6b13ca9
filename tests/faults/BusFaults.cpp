// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <filesystem>

#include "Fault.h"

namespace faults {

namespace {

constexpr useconds_t kFrozenMicroseconds = 5000000;
constexpr int kBusLost = 3;  // the service's exit code

// A bus for the service alone, because the rest of the appliance does not survive the end of its own.
class PrivateBus {
public:
    explicit PrivateBus(Trial& trial)
        : mPath(trial.appliance().folder() / "private.bus"),
          mDaemon({"dbus-daemon", "--session", "--nofork", "--address=unix:path=" + mPath},
                  trial.appliance().folder() / "dbus.log") {
        sim::until("the private bus is there", [this] { return std::filesystem::exists(mPath); });
    }
    ~PrivateBus() { std::filesystem::remove(mPath); }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    std::string address() const { return "unix:path=" + mPath; }
    void kill() { mDaemon.kill(); }

private:
    const std::string mPath;
    sim::Process mDaemon;
};

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

void sessionKilled(Trial& trial) {
    PrivateBus bus(trial);
    trial.startUnder("export DBUS_SESSION_BUS_ADDRESS=" + bus.address());
    trial.awaitLog("recognizes en_US", 20);
    bus.kill();
    trial.awaitEnd(kBusLost, "the session bus has gone");
}

void systemKilled(Trial& trial) {
    PrivateBus bus(trial);
    trial.startUnder("export DBUS_SYSTEM_BUS_ADDRESS=" + bus.address());
    trial.awaitLog("recognizes en_US", 20);
    bus.kill();
    trial.records();  // whether this machine has a network, determines the answer
    trial.report("answers a start");
    trial.endStarted();
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
            {"session bus killed", true, sessionKilled},
            {"system bus killed", false, systemKilled},
            {"network manager restarted", false, networkManagerGone},
            {"network lost", true, networkLost}};
}

}  // namespace faults
