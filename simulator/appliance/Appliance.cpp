// SPDX-License-Identifier: Apache-2.0
#include "appliance/Appliance.h"

#include <signal.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>

#include "appliance/environment/FactorySettings.h"
#include "appliance/environment/Tree.h"
#include "appliance/processes/Interrupt.h"
#include "appliance/sound/Speech.h"
#include "shared/Control.h"
#include "shared/Request.h"

namespace sim {

namespace {

constexpr useconds_t kPollMicroseconds = 10000;
constexpr double kAnswerSeconds = 4;
constexpr int kMostCalls = 3;

}  // namespace

Appliance::Appliance(const std::string& microphone) : mRoom(mFolder, microphone) {
    startNetworkManager();
    writeFactorySettings();
    for (const char* application : kRecipeApps) {
        launch(application);
    }
}

void Appliance::wakeUp(const std::string& voice, const std::string& word) {
    turnPage();
    for (int said = 1; count(kUi, {{"event", "wake word detected"}}) == 0; ++said) {
        say(word, voice);
        try {
            await(kUi, {{"event", "wake word detected"}}, kAnswerSeconds);
        } catch (const std::runtime_error&) {
            if (said == kMostCalls) {
                throw;
            }
        }
    }
    awaitState("Recording", "None", kAnswerSeconds);
}

void Appliance::say(const std::string& text, const std::string& voice) {
    awaitEnd(*startSaying(text, voice), text);
}

std::unique_ptr<Process> Appliance::startSaying(const std::string& text, const std::string& voice) {
    const std::string wav = speak(mFolder, text, voice);
    mRecord.write("said", {{"text", text}, {"voice", voice}});
    return mRoom.play(wav);
}

void Appliance::play(const std::string& wav) {
    mRecord.write("played", {{"file", wav}});
    awaitEnd(*mRoom.play(wav), wav);
}

void Appliance::awaitEnd(Process& player, const std::string& sound) {
    for (; player.runs(); usleep(kPollMicroseconds)) {
        endIfInterrupted();
        mEvents.read();  // for the watcher
    }
    if (player.wait() != 0) {
        throw std::runtime_error("cannot play " + sound);
    }
}

void Appliance::launch(const std::string& application) {
    sendRequest(session(), application, {std::string(kOperationBase) + "main", "", {}, "", ""});
}

void Appliance::control(const std::string& application, const std::string& action, const std::string& argument) {
    sim::control(session(), application, action, argument);
}

void Appliance::kill(const std::string& application) {
    const auto [process] = session()
                               .call(gio::messageBus(), "GetConnectionUnixProcessID", gio::Variant::tuple(application))
                               .fields<std::uint32_t>();
    ::kill(static_cast<pid_t>(process), SIGKILL);
    until(application + " has left the bus", [&] { return !runs(application); });
    mRecord.write("application killed", {{"application", application}});
}

void Appliance::setNetwork(const std::string& kind) {
    sim::control(system(), kNetwork, "network", kind);
    mRecord.write("network changed", {{"kind", kind}});
}

void Appliance::stopNetworkManager() {
    mNetworkManager.reset();
    until("the network manager has left the bus", [this] { return !system().hasOwner(kNetwork); });
    mRecord.write("network manager stopped");
}

void Appliance::startNetworkManager() {
    mNetworkManager = std::make_unique<Process>(
        std::vector<std::string>{builtProgram(kSimulatedApp), "network", kNetwork}, mFolder / "network.log");
    until("the network manager is on the bus", [this] { return system().hasOwner(kNetwork); });
}

void Appliance::restartSound() {
    mRoom.restart();
    mRecord.write("sound server restarted");
}

std::vector<Database::Fields> Appliance::table(const std::string& database, const std::string& table) const {
    return Database(database).read(table);
}

std::vector<std::string> Appliance::users() const {
    std::vector<std::string> names;
    for (const Database::Fields& user : table("Profile", "Profile")) {
        for (const auto& [field, value] : user) {
            if (field == "userName") {
                names.push_back(value);
            }
        }
    }
    return names;
}

Event Appliance::awaitState(const std::string& state, const std::string& error, double seconds) {
    return await(kUi, {{"event", "state"}, {"state", state}, {"error", error}}, seconds);
}

}  // namespace sim
