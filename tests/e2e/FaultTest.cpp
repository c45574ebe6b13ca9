// SPDX-License-Identifier: Apache-2.0
// Faults during a recognition session, and what the service then reports to the UI.
#include <gtest/gtest.h>

#include "Person.h"

namespace {

void startFromUi(Person& person) {
    person.appliance.launch(sim::kUi);
    person.appliance.turnPage();
    person.appliance.control(sim::kUi, "start", "Default");
}

}  // namespace

TEST(ACancelDuringRecording, ReportsStandByAndNoResult) {
    Person person;
    person.wakes();
    const auto speech = person.appliance.startSaying("open music");
    person.appliance.await(sim::kUi, {{"event", "speech detected"}});
    person.appliance.control(sim::kUi, "cancel");
    person.appliance.awaitState("StandBy");
    speech->wait();
    person.wakes();  // any effect of the command would have arrived by now
    EXPECT_EQ(person.appliance.events().countEver(sim::kUi, {{"event", "state"}, {"state", "Ready"}}), 0);
    EXPECT_EQ(person.appliance.events().countEver(sim::kUi, {{"event", "result"}}), 0);
    EXPECT_EQ(person.appliance.events().countEver(sim::kMusic, {{"event", "launch"}}), 0);
}

TEST(SilenceAfterTheWakeWord, EndsInARecordingTimeout) {
    Person person;
    person.wakes();
    person.appliance.awaitState("Error", "RecordingTimeout", 15);
}

TEST(AStartWithTheMicrophoneOff, ReportsMicOff) {
    Person person;
    sim::settings::set(sim::kMicrophone, 0);
    startFromUi(person);
    person.appliance.awaitState("Error", "MicOff");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}), 0);
}

TEST(TurningTheMicrophoneOffDuringRecording, EndsTheRecordingWithMicOff) {
    Person person;
    person.wakes();
    sim::settings::set(sim::kMicrophone, 0);
    person.appliance.awaitState("Error", "MicOff");
}

TEST(AStartWithTheNetworkOff, ReportsWifiOff) {
    Person person;
    person.losesNetwork();
    startFromUi(person);
    person.appliance.awaitState("Error", "WifiOff");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}), 0);
}

TEST(LosingTheNetworkDuringRecording, EndsTheRecordingWithWifiOff) {
    Person person;
    person.wakes();
    person.appliance.setNetwork("none");
    person.appliance.awaitState("Error", "WifiOff");
}

TEST(TheWakeWordWithTheMicrophoneOff, IsNotDetected) {
    Person person;
    sim::settings::set(sim::kMicrophone, 0);
    sim::until("the service releases the microphone", [&] { return !person.appliance.isRecorded(); });
    person.says("hey quorbit");
    sim::settings::set(sim::kMicrophone, 1);
    sim::until("the service records the microphone again", [&] { return person.appliance.isRecorded(); });
    person.wakes();
    const std::string log = person.appliance.service().log();
    EXPECT_EQ(log.find("> Trigger Shot!"), log.rfind("> Trigger Shot!")) << "only the second wake word is detected";
    EXPECT_EQ(person.appliance.events().countEver(sim::kUi, {{"event", "wake word detected"}}), 1);
}

TEST(AServiceThatRestartsWhileTheUiRuns, ReportsServerCrashed) {
    Person person;
    person.appliance.launch(sim::kUi);
    person.appliance.service().kill();
    person.appliance.turnPage();
    person.appliance.service().start();
    person.appliance.awaitState("Error", "ServerCrashed");
}

TEST(KillingTheUiDuringRecording, LeavesTheServiceRunningAndTheNextWakeWordWorking) {
    Person person;
    person.wakes();
    person.appliance.kill(sim::kUi);
    person.appliance.turnPage();
    // The recording times out. The request that reports this error starts the UI again.
    person.appliance.awaitState("Error", "RecordingTimeout", 15);
    person.wakes();
    EXPECT_TRUE(person.appliance.service().runs());
}

TEST(ARestartOfTheSoundServer, LetsTheServiceListenAgain) {
    Person person;
    person.appliance.restartSound();
    sim::until("the service listens again", [&] { return person.appliance.isRecorded(); });
    person.wakes();
}
