// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

#include "Fault.h"
#include "appliance/environment/Tree.h"
#include "shared/Application.h"
#include "shared/Request.h"

namespace faults {

namespace {

constexpr int kFlood = 10000;
constexpr double kFloodSeconds = 10;
constexpr std::size_t kHugeText = 60 << 20;
constexpr int kManyExtras = 200000;
constexpr int kExtraBytes = 40;  // in a message

pid_t processOf(Trial& trial, const char* application) {
    const auto [process] = trial.appliance()
                               .session()
                               .call(gio::messageBus(), "GetConnectionUnixProcessID", gio::Variant::tuple(application))
                               .fields<std::uint32_t>();
    return static_cast<pid_t>(process);
}

void killedDuringRecording(Trial& trial) {
    trial.startRecording();
    trial.appliance().kill(sim::kUi);
    trial.awaitState("Error", "RecordingTimeout");
}

// The microphone key must work even while the UI hangs.
void hung(Trial& trial) {
    trial.startRecording();
    const auto speech = trial.appliance().startSaying("show me the recipe for pancakes");
    {
        const Frozen ui(processOf(trial, sim::kUi));
        sim::settings::set(sim::kMicrophone, 0);
        const double begin = sim::monotonicNow();
        trial.awaitLog("> Error", 30);
        char text[32];
        snprintf(text, sizeof text, "after %.1f s", sim::monotonicNow() - begin);
        trial.report(text);
    }
    trial.awaitState("Error", "MicOff");
    sim::settings::set(sim::kMicrophone, 1);
    speech->wait();
}

void duplicated(Trial& trial) {
    sim::Process second({sim::builtProgram(sim::kSimulatedApp), "ui", sim::kUi},
                        trial.appliance().folder() / "second.log");
    trial.startRecording();
    trial.report("Recording");
    trial.appliance().control(sim::kUi, "cancel");
    trial.awaitState("StandBy");
}

sim::Request startRequest(sim::Extras extras) {
    return {std::string(sim::kOperationBase) + "start_voice_engine", "", std::move(extras), "", ""};
}

// The name of the error; empty if the service accepts the request.
std::string send(Trial& trial, const sim::Request& request) {
    try {
        sim::sendRequest(trial.appliance().session(), sim::kServiceId, request);
        return "";
    } catch (const gio::CallError& error) {
        return error.name();
    }
}

void expectTooLarge(Trial& trial, const sim::Request& request) {
    const std::string error = send(trial, request);
    if (error != "org.orvane.Error.TooLarge") {
        throw std::runtime_error("the request is not too large: " + error);
    }
    trial.awaitLog("too large");
    trial.report("TooLarge");
}

void flooding(Trial& trial) {
    const sim::Request request = startRequest({{"key_start_mode", {"Default"}}});
    int refused = 0;
    const double begin = sim::monotonicNow();
    for (int i = 0; i < kFlood; ++i) {
        refused += send(trial, request) == "org.orvane.Error.TooManyRequests" ? 1 : 0;
        while (sim::monotonicNow() < begin + i * kFloodSeconds / kFlood) {
            usleep(100);
        }
    }
    trial.awaitState("Recording");
    trial.report(std::to_string(refused) + " refused");
    trial.appliance().control(sim::kUi, "close");
    usleep(1000000);
    trial.appliance().wakeUp();
    trial.report("the wake word works 1 s later");
    trial.appliance().control(sim::kUi, "cancel");
}

void hugeText(Trial& trial) {
    expectTooLarge(trial, startRequest({{"key_start_mode", {std::string(kHugeText, 'x')}}}));
}

void manyExtras(Trial& trial) {
    sim::Extras extras;
    for (int i = 0; i < kManyExtras; ++i) {
        extras["extra " + std::to_string(i)] = {"x"};
    }
    expectTooLarge(trial, startRequest(std::move(extras)));
}

}  // namespace

Faults uiFaults() {
    return {{"UI killed during a recording", false, killedDuringRecording},
            {"UI hung during partial results", true, hung},
            {"second UI with the same name", false, duplicated},
            {"10,000 starts in 10 s", true, flooding},
            {"request of 60 MB", false, hugeText, kHugeText / 1024},
            {"request with 200,000 extras", false, manyExtras, kManyExtras * kExtraBytes / 1024}};
}

}  // namespace faults
