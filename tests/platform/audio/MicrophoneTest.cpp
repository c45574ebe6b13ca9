// SPDX-License-Identifier: Apache-2.0
// Microphones that are missing, unplugged, or plugged in. The room's loudspeaker always has a monitor, which the server
// offers as a source.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Captured.h"
#include "FocusRoom.h"
#include "Listener.h"
#include "process/Owner.h"
#include "room/SoundRoom.h"
#include "speech_capture.h"
#include "status/Problems.h"
#include "support/Eventually.h"

using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

int16_t block[256];

void readUntilItFails() {
    while (sse_read(block, 256) == 0) {
    }
}

// Makes the recorder's calls after a failed read, until a read succeeds.
void readUntilItSucceeds() {
    do {
        ASSERT_EQ(SpeechIn::reset(), 0);
    } while (sse_read(block, 256) != 0);
}

void expectNoMicrophone() {
    for (int times = 0; times < 5; ++times) {
        ASSERT_EQ(SpeechIn::reset(), 0);
        ASSERT_NE(sse_read(block, 256), 0);
        ASSERT_EQ(captured::streams().size(), 0U) << "captures from " << captured::streams()[0].source;
    }
    EXPECT_EQ(process::shared<status::Problems>().text(), "No microphone");
}

void unplug(const SoundRoom& room) {
    room.control({"unload-module", "module-remap-source"});
}

void plugIn(const SoundRoom& room) {
    room.control({"load-module", "module-remap-source", "master=room.monitor", "source_name=another"});
}

std::string sourceOfTheStream() {
    const auto streams = captured::streams();
    return streams.size() == 1 ? streams[0].source : std::to_string(streams.size()) + " streams";
}

}  // namespace

TEST(AnUnpluggedMicrophone, IsNotReplacedByTheMonitorOfALoudspeaker) {
    const SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.1);
    CaptureStderr();
    unplug(room);
    readUntilItFails();
    expectNoMicrophone();
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("No microphone"));
}

TEST(AMicrophoneThatIsPluggedIn, IsCapturedAgain) {
    const SoundRoom room;
    const SpeechIn microphone;
    unplug(room);
    readUntilItFails();
    expectNoMicrophone();
    plugIn(room);
    readUntilItSucceeds();
    EXPECT_EQ(sourceOfTheStream(), "another");
    EXPECT_EQ(process::shared<status::Problems>().text(), "Ready");
}

// The server also remembers the user's choice for the program's next streams.
TEST(AStreamThatIsMovedToAMonitor, ReturnsToTheMicrophone) {
    const SoundRoom room;
    for (int times = 0; times < 2; ++times) {
        const SpeechIn microphone;
        readUntilItSucceeds();
        EXPECT_EQ(sourceOfTheStream(), "mic");
        room.control({"move-source-output", captured::streams().at(0).number, "room.monitor"});
        EXPECT_TRUE(eventually([] { return sourceOfTheStream() == "mic"; }));
        readUntilItSucceeds();
    }
}

TEST(AStreamThatIsMovedToAnotherMicrophone, CapturesThere) {
    const SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.1);
    plugIn(room);
    room.control({"move-source-output", captured::streams().at(0).number, "another"});
    microphone.capture(0.2);
    EXPECT_EQ(sourceOfTheStream(), "another");
}

TEST(AMonitorThatIsTheDefaultSource, IsNotCaptured) {
    const SoundRoom room;
    room.control({"set-default-source", "room.monitor"});
    const SpeechIn microphone;
    expectNoMicrophone();
    room.control({"set-default-source", "mic"});
    readUntilItSucceeds();
    EXPECT_EQ(sourceOfTheStream(), "mic");
}
