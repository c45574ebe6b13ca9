// SPDX-License-Identifier: Apache-2.0
// A whole appliance of this process's own: buses, settings, a room to speak in, the applications and the service. One a
// process; everything that it started ends with it. All calls on one thread, the one that made it.
#pragma once

#include <memory>
#include <string>

#include "appliance/Environment.h"
#include "appliance/Events.h"
#include "appliance/Folder.h"
#include "appliance/Hub.h"
#include "appliance/Process.h"
#include "appliance/Reports.h"
#include "appliance/Room.h"
#include "lib/Bus.h"
#include "lib/Database.h"
#include "lib/Record.h"
#include "lib/Settings.h"

namespace sim {

class Appliance {
public:
    // Throws std::runtime_error, as all of these do, with a text that names what did not happen.
    // `microphone`: see Room.
    explicit Appliance(const std::string& microphone = {});
    ~Appliance();
    Appliance(const Appliance&) = delete;
    Appliance& operator=(const Appliance&) = delete;

    // Returns when the service listens. Another program may stand for it.
    void startService(const std::string& program = {});
    // Returns when it has also read its models: until then it is busy, begins to listen a second time and may miss a
    // word that is said just then.
    void awaitRecognizer();
    void stopService();
    // Asks it to end; its exit code, or 128 and the signal that ended it.
    int endService();
    // The end of a process that had no time to say good-bye.
    void killService();
    pid_t serviceProcess() const { return mService->id(); }
    bool serviceRuns() { return mService && mService->runs(); }

    // Says the wake-up word, and again when it is not answered, as people do; returns when the assistant records. Turns
    // the page.
    void wakeUp(const std::string& voice = "slt", const std::string& word = "hey quorbit");
    void say(const std::string& text, const std::string& voice = "slt");
    // The same, but returns while the person speaks, who falls silent with the process.
    std::unique_ptr<Process> startSaying(const std::string& text, const std::string& voice = "slt");
    void play(const std::string& wav);
    void order(const std::string& application, const std::string& order, const std::string& argument = {});
    void launch(const std::string& application);
    void kill(const std::string& application);
    // "ethernet", "wifi" or "none".
    void network(const std::string& kind);
    // The network manager leaves the bus, or comes to it with an ethernet connection.
    void stopNetworkManager();
    void startNetworkManager();
    // Dies and comes back; the microphone and all streams with it.
    void restartSound();
    bool soundRuns() const { return mRoom->runs(); }
    // Somebody records the microphone.
    bool isHeard() { return mRoom->isHeard(); }
    template <typename Value>
    void setting(const std::string& key, const Value& value) {
        mRecord->write("setting", {{"key", key}, {"value", value}});
        settings::set(key, value);
    }
    Hub& hub() { return *mHub; }
    // The account service says that a profile has changed.
    void announceProfile() { order(kAccount, "notify"); }
    // The names of the household's users that the local database holds.
    std::vector<std::string> users() const;
    // The records of a local database's table.
    std::vector<Database::Fields> table(const std::string& database, const std::string& table) const;
    bool runs(const std::string& application) { return mBus->hasOwner(application); }

    // What follows waits only for events from now on.
    void turnPage();
    // The first event of this page with these members. Throws when it has not come in `seconds`.
    Event await(const std::string& application, const Event& wanted, double seconds = 20);
    Event awaitState(const std::string& state, const std::string& error = "None", double seconds = 20);
    // How often it came on this page so far.
    int count(const std::string& application, const Event& wanted);
    // The same, on all pages.
    int countEver(const std::string& application, const Event& wanted);
    // All events of this page so far.
    std::vector<Event> page();
    void until(const std::string& what, const std::function<bool()>& condition, double seconds = 10);

    Events& events() { return mEvents; }
    Record& record() { return *mRecord; }
    const Folder& folder() const { return mFolder; }
    std::string serviceLog() const;
    // The end of the service's log on standard error, for whoever looks into what went wrong.
    void showLastWords() const;

private:
    void startBuses();
    void writeSettings();
    void awaitEnd(Process& player, const std::string& sound);
    const Event* find(const Event& wanted) const;
    int countFrom(std::size_t first, const std::string& application, const Event& wanted);

    Folder mFolder;
    Reports mReports{mFolder};
    bool mPrepared;
    std::unique_ptr<Record> mRecord;
    Events mEvents;
    std::size_t mPage = 0;
    std::unique_ptr<Process> mSystemBus;
    std::unique_ptr<Process> mSessionBus;
    std::unique_ptr<Process> mNetwork;
    std::unique_ptr<Hub> mHub;
    std::unique_ptr<Room> mRoom;
    std::unique_ptr<Bus> mBus;
    std::unique_ptr<Bus> mSystem;
    std::unique_ptr<Process> mService;
    std::size_t mLogBefore = 0;  // length of the service's log when it was started
};

}  // namespace sim
