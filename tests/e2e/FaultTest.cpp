// What goes wrong around a request, and what the UI is told then.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

constexpr char kMicrophone[] = "db/mic_key/status";

void startFromUi(Person& person) {
    person.appliance.launch(sim::kUi);
    person.appliance.turnPage();
    person.appliance.order(sim::kUi, "start", "Default");
}

}  // namespace

TEST(CancelWhileRecording, ReportsStandByAndNoResult) {
    Person person;
    person.wakes();
    person.appliance.order(sim::kUi, "cancel");
    person.appliance.awaitState("StandBy");
    person.wakes();  // and the assistant listens again
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "result"}}), 0);
}

TEST(SilenceAfterTheWakeUpWord, EndsInARecordingTimeout) {
    Person person;
    person.wakes();
    person.appliance.awaitState("Error", "RecordingTimeout", 15);
}

TEST(AStartWithTheMicrophoneOff, ReportsMicOff) {
    Person person;
    sim::settings::set(kMicrophone, 0);
    startFromUi(person);
    person.appliance.awaitState("Error", "MicOff");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}), 0);
}

TEST(TheMicrophoneTurnedOffWhileRecording, EndsTheRecordingWithMicOff) {
    Person person;
    person.wakes();
    sim::settings::set(kMicrophone, 0);
    person.appliance.awaitState("Error", "MicOff");
}

TEST(AStartWithTheNetworkOff, ReportsWifiOff) {
    Person person;
    person.appliance.network("none");
    startFromUi(person);
    person.appliance.awaitState("Error", "WifiOff");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}), 0);
}

TEST(TheNetworkLostWhileRecording, EndsTheRecordingWithWifiOff) {
    Person person;
    person.wakes();
    person.appliance.network("none");
    person.appliance.awaitState("Error", "WifiOff");
}

TEST(TheWakeUpWordWithTheMicrophoneOff, IsNotAnswered) {
    Person person;
    sim::settings::set(kMicrophone, 0);
    person.says("hey quorbit");
    sim::settings::set(kMicrophone, 1);
    person.appliance.turnPage();
    person.says("hey quorbit");
    person.appliance.await(sim::kUi, {{"event", "wake-up"}});
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "wake-up"}}), 1);
}

TEST(AServiceThatStartsAnewWhileTheUiRuns, ReportsServerCrashed) {
    Person person;
    person.appliance.launch(sim::kUi);
    person.appliance.killService();
    person.appliance.turnPage();
    person.appliance.startService();
    person.appliance.awaitState("Error", "ServerCrashed");
}

TEST(AUiKilledWhileRecording, LeavesTheServiceRunningAndIsLaunchedByTheNextWakeUp) {
    Person person;
    person.wakes();
    person.appliance.kill(sim::kUi);
    person.appliance.turnPage();
    // The recording that nobody watches ends by its own time-out; the report of that starts the UI again.
    person.appliance.awaitState("Error", "RecordingTimeout", 15);
    person.wakes();
    EXPECT_TRUE(person.appliance.serviceRuns());
}

TEST(ASoundServerThatComesBack, IsListenedToAgain) {
    Person person;
    person.appliance.restartSound();
    person.appliance.until("the service listens again", [&] { return person.appliance.isHeard(); });
    person.wakes();
}
