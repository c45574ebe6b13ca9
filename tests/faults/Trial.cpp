// SPDX-License-Identifier: Apache-2.0
#include "Trial.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "appliance/environment/Tree.h"

namespace faults {

namespace {

constexpr char kService[] = "service/orvane-da-service";
constexpr int kNobody = 65534;

sim::Event state(const std::string& name) {
    return {{"event", "state"}, {"state", name}};
}

// The first line of the text that contains `part`; empty if there is none.
std::string lineWith(const std::string& text, const std::string& part) {
    const std::size_t at = text.find(part);
    if (at == std::string::npos) {
        return {};
    }
    const std::size_t begin = at == 0 ? std::string::npos : text.rfind('\n', at);
    const std::size_t first = begin == std::string::npos ? 0 : begin + 1;
    return text.substr(first, text.find('\n', at) - first);
}

// Without the colors and the place in the code.
std::string messageOf(const std::string& line) {
    const std::size_t place = line.find(") > ");
    std::string message = place == std::string::npos ? line : line.substr(place + 4);
    return message.substr(0, message.find('\x1b'));
}

bool answers(sim::Appliance& appliance, const std::string& mode) {
    try {
        appliance.control(sim::kUi, "start", mode);
        return true;
    } catch (const std::runtime_error&) {  // the bus is starting the UI again
        return false;
    }
}

}  // namespace

Trial::Trial(sim::Appliance& appliance) : mAppliance(appliance), mLogBefore(appliance.service().log().size()) {
    appliance.turnPage();
}

void Trial::report(const std::string& text) {
    mReported += (mReported.empty() ? "" : ", ") + text;
}

void Trial::awaitState(const std::string& name, const std::string& error, double seconds) {
    mAppliance.awaitState(name, error, seconds);
    report(error == "None" ? name : name + "/" + error);
}

void Trial::awaitError(double seconds) {
    const sim::Event event = mAppliance.await(sim::kUi, state("Error"), seconds);
    report("Error/" + event.value("error", ""));
}

void Trial::awaitLog(const std::string& text, double seconds) {
    sim::until(
        "the service logs \"" + text + "\"", [&] { return !lineWith(newLog(), text).empty(); }, seconds);
    report(messageOf(lineWith(newLog(), text)));
}

void Trial::awaitEnd(int code, const std::string& text, double seconds) {
    sim::until(
        "the service ends", [&] { return mStarted ? !mStarted->runs() : !service().runs(); }, seconds);
    const int actual = mStarted ? mStarted->wait() : service().wait();
    mEnded = true;
    report("code " + std::to_string(actual));
    if (actual != code) {
        throw std::runtime_error("code " + std::to_string(code) + " expected");
    }
    if (text.empty()) {
        return;
    }
    const std::string line = lineWith(newLog(), text);
    if (line.empty()) {
        throw std::runtime_error("no line with \"" + text + "\"");
    }
    report(messageOf(line));
}

void Trial::startUnder(const std::string& commands) {
    service().end();
    const std::string script = "#!/bin/bash\n" + commands + "\nexec " + sim::builtProgram(kService) + "\n";
    const std::string path = mAppliance.folder().write("start", script);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    mStarted = std::make_unique<sim::Process>(std::vector<std::string>{path}, mAppliance.folder() / "service.log");
}

void Trial::endStarted() {
    ::kill(mStarted->id(), SIGTERM);
    awaitEnd(0, "");
}

void Trial::restart() {
    mStarted.reset();
    mRestarted = true;
    if (service().runs()) {
        service().end();
    }
    startWarm(mAppliance);
}

bool Trial::tryStart(const std::string& mode) {
    mAppliance.turnPage();
    if (!answers(mAppliance, mode)) {
        return false;
    }
    const auto shows = [this](const char* name) { return mAppliance.count(sim::kUi, state(name)) != 0; };
    sim::until("the service answers a start", [&] { return shows("Recording") || shows("Error"); });
    return shows("Recording");
}

void Trial::startRecording(const std::string& mode) {
    sim::until("the service records", [&] { return tryStart(mode); });
}

bool Trial::records() {
    if (!tryStart("Default")) {
        return false;
    }
    mAppliance.control(sim::kUi, "cancel");
    mAppliance.awaitState("StandBy");
    return true;
}

int Trial::run(const std::vector<std::string>& words) {
    return sim::Process(words, mAppliance.folder() / "faults.log").wait();
}

int Trial::runAsAnotherUser(const std::vector<std::string>& words) {
    if (geteuid() != 0) {
        throw CannotRun{"only root may become another user"};
    }
    std::vector<std::string> all{"setpriv", "--reuid=" + std::to_string(kNobody), "--clear-groups"};
    all.insert(all.end(), words.begin(), words.end());
    return run(all);
}

std::string Trial::newLog() const {
    return mAppliance.service().log().substr(mLogBefore);
}

void startWarm(sim::Appliance& appliance) {
    appliance.service().start();
    appliance.service().awaitRecognizer();
    Trial trial(appliance);
    sim::until("the service records", [&] { return trial.records(); });
    appliance.wakeUp();
    appliance.say("search for apple pie");
    appliance.await(sim::kViewer, {{"event", "opened"}});
    appliance.announceProfile();
    sim::until("the users are stored", [&] { return !appliance.users().empty(); });
}

}  // namespace faults
