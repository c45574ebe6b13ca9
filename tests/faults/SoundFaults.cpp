// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include "Fault.h"

namespace faults {

namespace {

constexpr int kCancels = 50;
constexpr useconds_t kCancelMicroseconds = 120000;
constexpr int kShortSeconds = 5;
constexpr int kLongSeconds = 150;

void awaitRecorded(Trial& trial) {
    sim::until("the service records the microphone again", [&] { return trial.appliance().isRecorded(); });
}

void killed(Trial& trial) {
    trial.appliance().restartSound();
    awaitRecorded(trial);
    trial.report("records again");
}

void killedDuringSpeech(Trial& trial) {
    trial.startRecording();
    trial.appliance().restartSound();
    trial.awaitError();
    awaitRecorded(trial);
}

void frozen(Trial& trial, int seconds) {
    {
        const Frozen server(trial.appliance().room().process());
        for (int passed = 0; passed < seconds; ++passed) {
            usleep(1000000);
        }
    }
    awaitRecorded(trial);
    trial.report("records again");
}

// As fast as the service accepts requests from one sender.
void cancelStarts(Trial& trial) {
    for (int i = 0; i < kCancels; ++i) {
        trial.appliance().control(sim::kUi, "start", "Default");
        trial.appliance().control(sim::kUi, "cancel");
        usleep(kCancelMicroseconds);
    }
    trial.report(std::to_string(kCancels) + " starts");
}

void frozenDuringStarts(Trial& trial) {
    const Frozen server(trial.appliance().room().process());
    cancelStarts(trial);
}

void defaultDeviceChanged(Trial& trial) {
    trial.run({"pactl", "load-module", "module-remap-source", "master=room.monitor", "source_name=other"});
    trial.run({"pactl", "set-default-source", "other"});
    sim::until("the service records", [&] { return trial.records(); });
    trial.run({"pactl", "set-default-source", "mic"});
    trial.report("records");
}

void unplugged(Trial& trial) {
    trial.run({"pactl", "unload-module", "module-remap-source"});
    trial.awaitLog("No microphone");
    trial.run({"pactl", "load-module", "module-remap-source", "master=room.monitor", "source_name=mic"});
    trial.run({"pactl", "set-default-source", "mic"});
}

}  // namespace

Faults soundFaults() {
    return {{"sound server killed", false, killed},
            {"sound server killed during speech", false, killedDuringSpeech},
            {"sound server frozen for 5 s", true, [](Trial& trial) { frozen(trial, kShortSeconds); }},
            {"sound server frozen for 150 s", false, [](Trial& trial) { frozen(trial, kLongSeconds); }},
            {"sound server frozen during 50 starts", false, frozenDuringStarts},
            {"50 starts canceled at once", true, cancelStarts},
            {"default microphone changed", false, defaultDeviceChanged},
            {"all microphones unplugged", true, unplugged}};
}

}  // namespace faults
