// SPDX-License-Identifier: Apache-2.0
// Faults at the start of the service: limits, missing or damaged data, and a clock that jumps.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Fault.h"
#include "appliance/environment/Tree.h"

namespace faults {

namespace {

constexpr char kClockLibrary[] = "/usr/$LIB/faketime/libfaketimeMT.so.1";
constexpr char kWordConfiguration[] = "voice/data/ENU/wakeup_quorbit/vocon_config.json";

struct Broken {
    const char* name;
    const char* content;  // of the configuration of the wake word
};

constexpr Broken kConfigurations[] = {
    {"wake configuration empty", ""},
    {"wake configuration not JSON", "{"},
    {"wake configuration without a phrase", "{}"},
    {"wake configuration with a number as the phrase", R"({"phrase": 7})"},
    {"wake configuration with an unknown word",
     R"({"phrase": "hey zzxqw", "pronunciations": {}, "model": "en-us/en-us", "threshold": 1e-25})"},
    {"wake configuration with a missing model",
     R"({"phrase": "hey there", "pronunciations": {}, "model": "no/such", "threshold": 1e-25})"},
    {"wake configuration nested too deeply", nullptr},
};

// A copy of the program's data that a fault may damage.
std::string copiedData(Trial& trial) {
    const std::string copy = trial.appliance().folder() / "data-copy";
    std::filesystem::remove_all(copy);
    std::filesystem::copy(sim::sourceFolder() + "/data", copy, std::filesystem::copy_options::recursive);
    return copy;
}

// The service runs and accepts requests from the UI, although it cannot detect the wake word.
void startWithConfiguration(Trial& trial, const Broken& broken) {
    const std::string content = broken.content ? broken.content : std::string(1 << 20, '[');
    const std::string data = copiedData(trial);
    std::ofstream(data + "/" + kWordConfiguration) << content;
    trial.startUnder("export ORVANE_DATA_ROOT=" + data);
    trial.awaitLog("- detail : ", 20);
    sim::until("the service records", [&] { return trial.records(); });
    trial.report("records");
    trial.restart();
}

void startWithLimit(Trial& trial, const std::string& limit) {
    trial.startUnder(limit);
    trial.awaitEnd(kCannotStart, "cannot start");
}

// The wall clock jumps and then jumps back while the service runs.
void jumpClock(Trial& trial, const std::string& jump) {
    if (!std::filesystem::exists("/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1")) {
        throw CannotRun{"the package faketime is not installed"};
    }
    const std::string clock = trial.appliance().folder().write("clock", "+0");
    trial.startUnder("export LD_PRELOAD='" + std::string(kClockLibrary) + "' FAKETIME_TIMESTAMP_FILE=" + clock +
                     " FAKETIME_DONT_FAKE_MONOTONIC=1 FAKETIME_NO_CACHE=1");
    sim::until("the service records", [&] { return trial.records(); });
    for (const std::string& offset : {jump, std::string("+0")}) {
        trial.appliance().folder().write("clock", offset);
        sim::until("the service records", [&] { return trial.records(); });
        trial.appliance().wakeUp();
        trial.appliance().control(sim::kUi, "cancel");
    }
    trial.report("records and detects the wake word");
    trial.restart();
}

void withoutModels(Trial& trial) {
    trial.startUnder("export ORVANE_MODEL_ROOT=/nowhere");
    trial.awaitLog("/nowhere");
    trial.restart();
}

// A copy of the models that a fault may damage.
std::string copiedModels(Trial& trial) {
    const std::string copy = trial.appliance().folder() / "models";
    std::filesystem::remove_all(copy);
    trial.run({"cp", "-r", "/usr/share/pocketsphinx/model", copy});
    return copy;
}

// The model becomes shorter while the service has it open.
void truncatedModel(Trial& trial) {
    const std::string models = copiedModels(trial);
    trial.startUnder("export ORVANE_MODEL_ROOT=" + models);
    sim::until("the service records", [&] { return trial.records(); });
    for (const auto& entry : std::filesystem::recursive_directory_iterator(models)) {
        if (entry.is_regular_file()) {
            std::filesystem::resize_file(entry, entry.file_size() / 2);
        }
    }
    trial.appliance().wakeUp();
    trial.appliance().control(sim::kUi, "cancel");
    trial.report("detects the wake word");
    trial.restart();
}

void damagedModel(Trial& trial) {
    const std::string models = copiedModels(trial);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(models)) {
        if (entry.is_regular_file()) {
            std::filesystem::resize_file(entry, entry.file_size() / 2);
        }
    }
    trial.startUnder("export ORVANE_MODEL_ROOT=" + models);
    trial.awaitLog("- detail : damaged model: ", 20);
    trial.awaitLog("cannot load the recognizer", 20);
    trial.restart();
}

// One bit of each file is wrong, and its size is right.
void changedModel(Trial& trial) {
    const std::string models = copiedModels(trial);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(models)) {
        if (entry.is_regular_file()) {
            std::fstream file(entry.path(), std::ios::in | std::ios::out | std::ios::binary);
            const auto middle = static_cast<std::streamoff>(entry.file_size() / 2);
            file.seekg(middle);
            const int byte = file.get();
            file.seekp(middle);
            file.put(static_cast<char>(byte ^ 1));
        }
    }
    trial.startUnder("export ORVANE_MODEL_ROOT=" + models);
    trial.awaitLog("- detail : damaged model: ", 20);
    trial.awaitLog("cannot load the recognizer", 20);
    trial.restart();
}

void withoutSound(Trial& trial) {
    trial.startUnder("export PULSE_SERVER=unix:/nowhere");
    trial.awaitLog("sound server");
    trial.restart();
}

void withoutSessionBus(Trial& trial) {
    trial.startUnder("export DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere");
    trial.awaitEnd(kCannotStart, "bus");
}

Fault limited(const char* name, bool quick, const char* limit) {
    return {name, quick, [limit](Trial& trial) { startWithLimit(trial, limit); }};
}

Fault jumping(const char* name, const char* jump) {
    return {name, false, [jump](Trial& trial) { jumpClock(trial, jump); }};
}

}  // namespace

Faults startFaults() {
    Faults faults{limited("start with 36 descriptors", true, "ulimit -n 36"),
                  limited("start with 900 MB of address space", false, "ulimit -v 900000"),
                  jumping("clock one day ahead and back", "+1d"),
                  jumping("clock one day behind and back", "-1d"),
                  jumping("clock ten years ahead and back", "+10y"),
                  jumping("clock ten years behind and back", "-10y"),
                  {"speech models missing", true, withoutModels},
                  {"speech models damaged", true, damagedModel},
                  {"speech models with a wrong bit", true, changedModel},
                  {"speech models truncated while in use", false, truncatedModel},
                  {"start without a sound server", false, withoutSound},
                  {"start without a session bus", false, withoutSessionBus}};
    for (const Broken& broken : kConfigurations) {
        faults.push_back({broken.name, false, [&broken](Trial& trial) { startWithConfiguration(trial, broken); }});
    }
    return faults;
}

}  // namespace faults
