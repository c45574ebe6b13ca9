// SPDX-License-Identifier: Apache-2.0
// A complete appliance on this machine: buses, settings, a room, the applications, the hub, and the service. Only one
// per process. Its destructor ends everything that it started. Call all functions on the thread that created it. They
// throw Interrupted, or std::runtime_error with a text that names what did not happen.
#pragma once

#include <memory>
#include <string>

#include "appliance/Names.h"
#include "appliance/environment/Buses.h"
#include "appliance/environment/Environment.h"
#include "appliance/environment/Folder.h"
#include "appliance/events/Events.h"
#include "appliance/processes/Hub.h"
#include "appliance/processes/Process.h"
#include "appliance/processes/SanitizerReports.h"
#include "appliance/processes/Service.h"
#include "appliance/processes/Until.h"
#include "appliance/sound/Room.h"
#include "shared/Database.h"
#include "shared/Record.h"
#include "shared/Settings.h"

namespace sim {

class Appliance {
public:
    // The service does not run yet. For `microphone` see Room.
    explicit Appliance(const std::string& microphone = {});
    Appliance(const Appliance&) = delete;
    Appliance& operator=(const Appliance&) = delete;

    // Says the wake word, up to three times as a person would, and returns when the UI receives Recording. Turns the
    // page.
    void wakeUp(const std::string& voice = "slt", const std::string& word = "hey quorbit");
    // Returns when the last word has been played.
    void say(const std::string& text, const std::string& voice = "slt");
    // Returns at once. Destroying the process ends the speech.
    std::unique_ptr<Process> startSaying(const std::string& text, const std::string& voice = "slt");
    void play(const std::string& wav);

    void launch(const std::string& application);
    // Sends a control to a simulated application; docs/simulator.md lists them.
    void control(const std::string& application, const std::string& action, const std::string& argument = {});
    bool runs(const std::string& application) const { return session().hasOwner(application); }
    void kill(const std::string& application);

    // "ethernet", "wifi", or "none".
    void setNetwork(const std::string& kind);
    void stopNetworkManager();
    // The network is ethernet again.
    void startNetworkManager();
    // Kills the sound server and starts it again; all streams end.
    void restartSound();

    const Buses& buses() const { return mBuses; }
    const gio::Connection& session() const { return mBuses.session(); }
    const gio::Connection& system() const { return mBuses.system(); }
    Service& service() { return mService; }
    const Room& room() const { return mRoom; }
    // Whether an application records the microphone.
    bool isRecorded() { return mRoom.isRecorded(); }
    Hub& hub() { return mHub; }
    // The account service announces that a profile has changed.
    void announceProfile() { control(kAccount, "notify"); }
    // The names of the users in the local database.
    std::vector<std::string> users() const;
    // The records of a table of the local database.
    std::vector<Database::Fields> table(const std::string& database, const std::string& table) const;

    // See Events.
    Events& events() { return mEvents; }
    void turnPage() { mEvents.turnPage(); }
    Event await(const std::string& application, const Event& wanted, double seconds = 20) {
        return mEvents.await(application, wanted, seconds);
    }
    // Waits until the UI receives the state.
    Event awaitState(const std::string& state, const std::string& error = "None", double seconds = 20);
    int count(const std::string& application, const Event& wanted) { return mEvents.count(application, wanted); }

    Record& record() { return mRecord; }
    const Folder& folder() const { return mFolder; }

private:
    void awaitEnd(Process& player, const std::string& sound);

    Folder mFolder;
    SanitizerReports mReports{mFolder};
    Environment mEnvironment{mFolder};
    Record mRecord{"appliance"};
    Events mEvents{mFolder / "records"};
    Buses mBuses{mFolder};
    Hub mHub{mFolder};
    Room mRoom;
    std::unique_ptr<Process> mNetworkManager;
    // The service ends first, while everything that it uses still runs.
    Service mService{mFolder, mBuses.session(), mRecord, mRoom};
};

}  // namespace sim
