// SPDX-License-Identifier: Apache-2.0
#include "appliance/Appliance.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "appliance/Interrupt.h"
#include "appliance/Speech.h"
#include "appliance/Tree.h"
#include "lib/Application.h"
#include "lib/Control.h"

namespace sim {

namespace {

constexpr char kRecognizerReady[] = "Previous(None) -> Current(Ready)";
constexpr double kRecognizerSeconds = 30;
constexpr useconds_t kPollMicroseconds = 10000;
constexpr double kAnswerSeconds = 4;
constexpr int kMostCalls = 3;
constexpr std::size_t kLastWords = 8000;
constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";
constexpr char kDaemon[] = "org.freedesktop.DBus";

// The settings library talks over this process's shared connection, whose end would end the process.
void outliveTheBus() {
    Fault fault;
    // Kept until the process ends: there is one a process, and only while someone has it.
    static const Pointer<GDBusConnection> shared(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, fault.out()));
    if (!shared) {
        throw std::runtime_error("no session bus: " + fault.text());
    }
    g_dbus_connection_set_exit_on_close(shared.get(), FALSE);
}

bool prepared(const Folder& folder) {
    prepareEnvironment(folder);
    return true;
}

}  // namespace

Appliance::Appliance(const std::string& microphone)
    : mPrepared(prepared(mFolder)), mRecord(std::make_unique<Record>("appliance")), mEvents(mFolder / "records") {
    startBuses();
    startNetworkManager();
    mHub = std::make_unique<Hub>(mFolder);
    mRoom = std::make_unique<Room>(mFolder, microphone);
    writeSettings();
    for (const char* application : kRecipeApps) {
        launch(application);
    }
}

// The applications end with their bus; the service goes first, so that it meets the appliance whole.
Appliance::~Appliance() {
    mService.reset();
    mBus.reset();
    mSystem.reset();
}

void Appliance::startBuses() {
    for (const char* type : {"system", "session"}) {
        auto& process = type == std::string("system") ? mSystemBus : mSessionBus;
        process = std::make_unique<Process>(
            std::vector<std::string>{"dbus-daemon", "--nofork",
                                     "--config-file=" + (mFolder / (std::string(type) + ".conf"))},
            mFolder / "dbus.log");
        const std::string socket = mFolder / (std::string(type) + ".bus");
        until(std::string("the ") + type + " bus stands", [&] { return std::filesystem::exists(socket); });
    }
    mSystem = std::make_unique<Bus>("unix:path=" + (mFolder / "system.bus"));
    mBus = std::make_unique<Bus>("unix:path=" + (mFolder / "session.bus"));
    outliveTheBus();
}

// An appliance that has been set up, with its microphone on, somewhere in the United States.
void Appliance::writeSettings() {
    for (const char* key :
         {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
        settings::set(key, 0);
    }
    settings::set("db/mic_key/status", 1);
    settings::set("db/orvane/setting/lang", 1);
    settings::set("db/orvane/setting/voice_wakeup_word", 0);
    settings::set("db/orvane/setting/voice_feedback", true);
    settings::set("db/orvane/setting/voice_wakeup", true);
    settings::set("db/orvane/manager/response", false);
    settings::set("db/orvane/manager/bos_response", false);
    settings::set("db/menu_widget/language", "en_US.UTF-8");
    settings::set("db/setting/country_code", "US");
    settings::set("db/setting/region_code", "US");
    settings::set("db/pm/event-ss-wait-time", 300);
    settings::set("db/setting/lcd_backlight_normal", 60);
}

void Appliance::startService(const std::string& chosen) {
    const std::string program = chosen.empty() ? builtProgram("service/orvane-da-service") : chosen;
    if (access(program.c_str(), X_OK) != 0) {
        throw std::runtime_error("there is no program " + program + "; build it first");
    }
    std::filesystem::remove(kLevelFile);
    mRecord->write("service starts");
    mLogBefore = serviceLog().size();
    mService = std::make_unique<Process>(std::vector<std::string>{program}, mFolder / "service.log");
    until("the service is on the bus", [this] {
        if (!mService->runs()) {
            throw std::runtime_error("the service ended at once, with code " + std::to_string(mService->wait()));
        }
        return mBus->hasOwner(kServiceId);
    });
    until("the service listens", [this] { return isHeard(); });
    // The last thing it does before it follows the settings and takes requests.
    until("the service writes the level file", [] { return std::filesystem::exists(kLevelFile); });
    mRecord->write("service listens");
}

void Appliance::awaitRecognizer() {
    until(
        "the recognizer is ready",
        [this] { return serviceLog().find(kRecognizerReady, mLogBefore) != std::string::npos; }, kRecognizerSeconds);
    mRecord->write("recognizer ready");
}

void Appliance::stopService() {
    mService.reset();
    mRecord->write("service stopped");
}

int Appliance::endService() {
    ::kill(mService->id(), SIGTERM);
    const int code = mService->wait();
    stopService();
    return code;
}

void Appliance::killService() {
    mService->kill();
    mService.reset();
    mRecord->write("service killed");
}

void Appliance::wakeUp(const std::string& voice, const std::string& word) {
    turnPage();
    for (int said = 1; count(kUi, {{"event", "wake-up"}}) == 0; ++said) {
        say(word, voice);
        try {
            await(kUi, {{"event", "wake-up"}}, kAnswerSeconds);
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
    mRecord->write("said", {{"text", text}, {"voice", voice}});
    return mRoom->play(wav);
}

void Appliance::play(const std::string& wav) {
    mRecord->write("played", {{"file", wav}});
    awaitEnd(*mRoom->play(wav), wav);
}

void Appliance::awaitEnd(Process& player, const std::string& sound) {
    for (; player.runs(); usleep(kPollMicroseconds)) {
        endIfInterrupted();
        mEvents.read();  // for who watches
    }
    if (player.wait() != 0) {
        throw std::runtime_error("cannot play " + sound);
    }
}

void Appliance::order(const std::string& application, const std::string& order, const std::string& argument) {
    sim::order(*mBus, application, order, argument);
}

void Appliance::launch(const std::string& application) {
    mBus->call(
        application, "/org/orvane/Application", "org.orvane.Application1", "Launch",
        g_variant_new("(ss@a(aybaay)s)", (std::string(kOperationBase) + "main").c_str(), "", packExtras({}), ""));
}

void Appliance::kill(const std::string& application) {
    const auto answer = mBus->call(kDaemon, "/org/freedesktop/DBus", kDaemon, "GetConnectionUnixProcessID",
                                   g_variant_new("(s)", application.c_str()));
    guint32 process = 0;
    g_variant_get(answer.get(), "(u)", &process);
    ::kill(static_cast<pid_t>(process), SIGKILL);
    until(application + " has gone", [&] { return !runs(application); });
    mRecord->write("killed", {{"application", application}});
}

void Appliance::network(const std::string& kind) {
    sim::order(*mSystem, kNetwork, "network", kind);
    mRecord->write("network", {{"kind", kind}});
}

void Appliance::stopNetworkManager() {
    mNetwork.reset();
    until("the network manager has gone", [this] { return !mSystem->hasOwner(kNetwork); });
    mRecord->write("network manager stopped");
}

void Appliance::startNetworkManager() {
    mNetwork = std::make_unique<Process>(std::vector<std::string>{builtProgram(kSimulatedApp), "network", kNetwork},
                                         mFolder / "network.log");
    until("the network manager stands", [this] { return mSystem->hasOwner(kNetwork); });
}

void Appliance::restartSound() {
    mRoom->restart();
    mRecord->write("sound server restarted");
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

void Appliance::turnPage() {
    mEvents.read();
    mPage = mEvents.all().size();
}

const Event* Appliance::find(const Event& wanted) const {
    const auto& all = mEvents.all();
    const auto found = std::find_if(all.begin() + static_cast<std::ptrdiff_t>(mPage), all.end(),
                                    [&wanted](const Event& event) { return matches(event, wanted); });
    return found == all.end() ? nullptr : &*found;
}

Event Appliance::await(const std::string& application, const Event& wanted, double seconds) {
    Event whole = wanted;
    whole["app"] = application;
    const Event* found = nullptr;
    until(
        "from " + application + " comes " + wanted.dump(),
        [&] {
            mEvents.read();
            found = find(whole);
            return found != nullptr;
        },
        seconds);
    return *found;
}

Event Appliance::awaitState(const std::string& state, const std::string& error, double seconds) {
    return await(kUi, {{"event", "state"}, {"state", state}, {"error", error}}, seconds);
}

int Appliance::count(const std::string& application, const Event& wanted) {
    return countFrom(mPage, application, wanted);
}

int Appliance::countEver(const std::string& application, const Event& wanted) {
    return countFrom(0, application, wanted);
}

int Appliance::countFrom(std::size_t first, const std::string& application, const Event& wanted) {
    mEvents.read();
    Event whole = wanted;
    whole["app"] = application;
    const auto& all = mEvents.all();
    return static_cast<int>(std::count_if(all.begin() + static_cast<std::ptrdiff_t>(first), all.end(),
                                          [&whole](const Event& event) { return matches(event, whole); }));
}

std::vector<Event> Appliance::page() {
    mEvents.read();
    return {mEvents.all().begin() + static_cast<std::ptrdiff_t>(mPage), mEvents.all().end()};
}

void Appliance::until(const std::string& what, const std::function<bool()>& condition, double seconds) {
    for (const double end = monotonicNow() + seconds; !condition(); usleep(kPollMicroseconds)) {
        endIfInterrupted();
        if (monotonicNow() > end) {
            throw std::runtime_error("this did not happen: " + what);
        }
    }
}

std::string Appliance::serviceLog() const {
    std::ifstream file(mFolder / "service.log");
    return {std::istreambuf_iterator<char>(file), {}};
}

void Appliance::showLastWords() const {
    const std::string log = serviceLog();
    if (!log.empty()) {
        fprintf(stderr, "the service's last words:\n%s\n",
                log.substr(log.size() - std::min(log.size(), kLastWords)).c_str());
    }
}

}  // namespace sim
