// SPDX-License-Identifier: Apache-2.0
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
    const auto speech = person.appliance.startSaying("open music");
    person.appliance.await(sim::kUi, {{"event", "speech detected"}});
    person.appliance.order(sim::kUi, "cancel");
    person.appliance.awaitState("StandBy");
    speech->wait();
    person.wakes();  // and the assistant listens again; what comes of the command would have come by now
    EXPECT_EQ(person.appliance.countEver(sim::kUi, {{"event", "state"}, {"state", "Ready"}}), 0);
    EXPECT_EQ(person.appliance.countEver(sim::kUi, {{"event", "result"}}), 0);
    EXPECT_EQ(person.appliance.countEver(sim::kMusic, {{"event", "launch"}}), 0);
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
    person.losesNetwork();
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
    // Heard, and done with, when the service begins to listen again.
    person.appliance.until("the word is heard", [&] {
        const std::string log = person.appliance.serviceLog();
        const auto heard = log.find("Trigger Shot!");
        return heard != std::string::npos && log.find("__startListening", heard) != std::string::npos;
    });
    sim::settings::set(kMicrophone, 1);
    person.wakes();
    EXPECT_EQ(person.appliance.countEver(sim::kUi, {{"event", "wake-up"}}), 1);
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
