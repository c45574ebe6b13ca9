// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Service.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "appliance/environment/Tree.h"
#include "appliance/processes/Until.h"
#include "shared/Application.h"

namespace sim {

namespace {

constexpr double kRecognizerSeconds = 30;
constexpr std::size_t kEndOfLog = 8000;
constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";

}  // namespace

bool serviceStatus(const gio::Connection& session, const char* property) {
    try {
        const auto [value] = session
                                 .call({kServiceId, "/org/orvane/Status", "org.freedesktop.DBus.Properties"}, "Get",
                                       gio::Variant::tuple("org.orvane.Status1", property), {5000, false})
                                 .fields<gio::Variant>();
        return value.as<bool>();
    } catch (const gio::CallError&) {
        return false;
    }
}

void Service::start(const std::string& chosen) {
    const std::string program = chosen.empty() ? builtProgram("service/orvane-da-service") : chosen;
    if (access(program.c_str(), X_OK) != 0) {
        throw std::runtime_error("the program " + program + " does not exist; build it first");
    }
    std::filesystem::remove(kLevelFile);
    mRecord.write("service starts");
    mProcess = std::make_unique<Process>(std::vector<std::string>{program}, mFolder / "service.log");
    awaitStart();
    mRecord.write("service listens");
}

void Service::awaitStart() {
    until("the service is on the bus", [this] {
        if (!mProcess->runs()) {
            throw std::runtime_error("the service ended during its start, with code " +
                                     std::to_string(mProcess->wait()));
        }
        return mSession.hasOwner(kServiceId);
    });
    until("the service records the microphone", [this] { return mRoom.isRecorded(); });
    // The last step before the service follows the settings and takes requests.
    until("the service writes the level file", [] { return std::filesystem::exists(kLevelFile); });
}

void Service::awaitRecognizer() {
    until(
        "the recognizer is ready", [this] { return serviceStatus(mSession, "RecognizerReady"); }, kRecognizerSeconds);
    mRecord.write("recognizer ready");
}

void Service::stop() {
    mProcess.reset();
    mRecord.write("service stopped");
}

int Service::end() {
    ::kill(mProcess->id(), SIGTERM);
    const int code = mProcess->wait();
    stop();
    return code;
}

void Service::kill() {
    mProcess->kill();
    mProcess.reset();
    mRecord.write("service killed");
}

std::string Service::log() const {
    std::ifstream file(mFolder / "service.log");
    return {std::istreambuf_iterator<char>(file), {}};
}

void Service::printEndOfLog() const {
    const std::string all = log();
    if (!all.empty()) {
        fprintf(stderr, "the end of the service's log:\n%s\n",
                all.substr(all.size() - std::min(all.size(), kEndOfLog)).c_str());
    }
}

}  // namespace sim
