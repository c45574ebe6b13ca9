// SPDX-License-Identifier: Apache-2.0
#include <fstream>

#include "Fault.h"
#include "Mount.h"

namespace faults {

namespace {

constexpr char kSettingsService[] = "ca.desrt.dconf";
constexpr std::size_t kHugeText = 10 << 20;

std::string database(Trial& trial) {
    return trial.appliance().folder() / "config/dconf/user";
}

void killed(Trial& trial) {
    trial.appliance().kill(kSettingsService);
    sim::settings::set(sim::kMicrophone, 0);
    trial.appliance().control(sim::kUi, "start", "Default");
    trial.awaitState("Error", "MicOff");
    sim::settings::set(sim::kMicrophone, 1);
}

// While the database cannot be written, settings keep their values.
void readOnly(Trial& trial) {
    trial.appliance().kill(kSettingsService);
    {
        const Mount mount(trial, "ro", trial.appliance().folder() / "config/dconf");
        sim::until("the service records", [&] { return trial.records(); });
        trial.report("records");
    }
    trial.appliance().kill(kSettingsService);
}

void corrupt(Trial& trial) {
    const std::string path = database(trial);
    const std::string kept = trial.appliance().folder() / "kept";
    trial.run({"cp", path, kept});
    std::ofstream(path, std::ios::trunc) << std::string(4096, '\xff');
    trial.records();  // any answer will do
    trial.report("answers a start");
    trial.run({"cp", kept, path});
    trial.appliance().kill(kSettingsService);
    sim::settings::set(sim::kMicrophone, 1);
}

void wrongTypes(Trial& trial) {
    sim::settings::set(sim::kMicrophone, "on");
    sim::settings::set(sim::kMenuLanguage, 7);
    sim::settings::set(sim::kWakeWord, "quorbit");
    sim::settings::set(sim::kReadyAcknowledged, 3);
    trial.records();  // any answer will do
    trial.report("answers a start");
    sim::settings::set(sim::kMicrophone, 1);
    sim::settings::set(sim::kMenuLanguage, "en_US.UTF-8");
    sim::settings::set(sim::kWakeWord, 0);
    sim::settings::set(sim::kReadyAcknowledged, false);
}

void hugeTexts(Trial& trial) {
    sim::settings::set(sim::kMenuLanguage, std::string(kHugeText, 'x'));
    sim::until("the service records", [&] { return trial.records(); });
    trial.report("records");
    sim::settings::set(sim::kMenuLanguage, "en_US.UTF-8");
}

}  // namespace

Faults settingsFaults() {
    return {{"settings service killed", false, killed},
            {"settings database read-only", false, readOnly},
            {"settings database corrupt", false, corrupt},
            {"settings with wrong types", true, wrongTypes},
            {"setting of 10 MB", false, hugeTexts}};
}

}  // namespace faults
