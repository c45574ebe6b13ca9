// SPDX-License-Identifier: Apache-2.0
// The recording focus, on a real bus and against other processes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <future>

#include "FocusRoom.h"
#include "audio/focus/FocusReason.h"
#include "support/Eventually.h"

using namespace focus;
using testing::ElementsAre;
using testing::IsEmpty;

class TheRecordingFocus : public testing::Test {
protected:
    TheRecordingFocus() { privateBusAddress(); }
};
using AStreamThatLosesTheFocus = TheRecordingFocus;
using AnAudioStream = TheRecordingFocus;

namespace {

constexpr int kAlarm = SOUND_STREAM_FOCUS_CHANGED_BY_ALARM;
constexpr int kVoice = SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_RECOGNITION;

// This process holds the name or is in the queue for it.
bool waitsAtTheBus() {
    try {
        const auto answer = bus::session().call(gio::messageBus(), "ListQueuedOwners", gio::Variant::tuple(kName));
        const auto [owners] = answer.fields<std::vector<std::string>>();
        return std::find(owners.begin(), owners.end(), bus::session().uniqueName()) != owners.end();
    } catch (const gio::CallError&) {
        return false;  // nobody holds it
    }
}

}  // namespace

TEST_F(TheRecordingFocus, IsHeldFromItsAcquisitionToItsRelease) {
    Stream stream;
    EXPECT_FALSE(stream.holds());
    EXPECT_EQ(stream.release(), SOUND_MANAGER_ERROR_INVALID_STATE);
    EXPECT_EQ(stream.acquire(), 0);
    EXPECT_TRUE(stream.holds());
    EXPECT_TRUE(isOurs());
    EXPECT_EQ(stream.acquire(), SOUND_MANAGER_ERROR_INVALID_STATE);
    EXPECT_EQ(stream.release(), 0);
    EXPECT_FALSE(stream.holds());
    EXPECT_TRUE(isFree());
    settle();
    EXPECT_THAT(stream->all(), IsEmpty()) << "a stream gets no callback for its own calls";
}

TEST_F(TheRecordingFocus, LeavesThePlaybackFocusAlone) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    EXPECT_FALSE(bus::session().hasOwner("org.orvane.Focus.Playback"));
}

TEST_F(TheRecordingFocus, ShowsItsReasonOnTheBus) {
    for (const auto type : {SOUND_STREAM_TYPE_VOICE_RECOGNITION, SOUND_STREAM_TYPE_MEDIA}) {
        Stream stream(true, type);
        ASSERT_EQ(stream.acquire(), 0);
        EXPECT_EQ(static_cast<int>(audio::focusReasonOf(kName)), static_cast<int>(type));
    }
}

TEST_F(AStreamThatLosesTheFocus, ReceivesTheReasonAndRegainsTheFocusWhenTheOtherProcessEnds) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    EXPECT_FALSE(stream.holds());
    EXPECT_FALSE(isOurs());
    alarm.kill();
    ASSERT_TRUE(stream->await(acquired(kAlarm)));
    EXPECT_TRUE(stream.holds());
    EXPECT_TRUE(isOurs());
    EXPECT_EQ(static_cast<int>(audio::focusReasonOf(kName)), kVoice);
    EXPECT_FALSE(stream->stray()) << "callbacks run on the sound thread";
    EXPECT_THAT(stream->all(), ElementsAre(released(kAlarm), acquired(kAlarm)));
}

TEST_F(AStreamThatLosesTheFocus, CanTakeItFromTheOtherProcessAgain) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    const Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    EXPECT_EQ(stream.acquire(), 0);
    EXPECT_TRUE(stream.holds());
    EXPECT_TRUE(isOurs());
    settle();
    EXPECT_THAT(stream->all(), ElementsAre(released(kAlarm)));
}

TEST_F(AStreamThatLosesTheFocus, DoesNotGetItBackWithoutReacquisition) {
    Stream stream(false);
    ASSERT_EQ(stream.acquire(), 0);
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    EXPECT_FALSE(waitsAtTheBus());
    alarm.kill();
    EXPECT_TRUE(eventually(isFree));
    EXPECT_FALSE(stream.holds());
    EXPECT_EQ(stream.release(), SOUND_MANAGER_ERROR_INVALID_STATE);
}

TEST_F(AStreamThatLosesTheFocus, StopsWaitingWhenItReleases) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    const Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    ASSERT_TRUE(waitsAtTheBus());
    EXPECT_EQ(stream.release(), 0);
    EXPECT_FALSE(waitsAtTheBus());
}

TEST_F(AStreamThatLosesTheFocus, ReceivesSystemAsTheReasonIfTheOtherProcessGivesNone) {
    const gio::Variant reasons[] = {{}, gio::Variant::of(11), gio::Variant::of(-1), gio::Variant::of("alarm")};
    for (const gio::Variant& reason : reasons) {
        Stream stream;
        ASSERT_EQ(stream.acquire(), 0);
        Rival rival;
        if (reason) {
            rival.show(reason);
        }
        ASSERT_EQ(rival.take(kReplace), kPrimaryOwner);
        EXPECT_TRUE(stream->await(released(SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM)));
    }
}

TEST_F(TheRecordingFocus, IsRefusedWhileAnotherProgramDoesNotAllowReplacement) {
    Stream stream;
    Rival rival;
    ASSERT_EQ(rival.take(0), kPrimaryOwner);
    EXPECT_EQ(stream.acquire(), SOUND_MANAGER_ERROR_POLICY);
    EXPECT_FALSE(stream.holds());
    EXPECT_EQ(stream.release(), SOUND_MANAGER_ERROR_INVALID_STATE);
    rival.giveBack();
    EXPECT_TRUE(eventually(isFree)) << "a refused stream does not wait";
    EXPECT_EQ(stream.acquire(), 0);
}

TEST_F(TheRecordingFocus, GoesToTheNewestStreamOfTheProcessAndBack) {
    Stream voice;
    Stream media(true, SOUND_STREAM_TYPE_MEDIA);
    ASSERT_EQ(voice.acquire(), 0);
    ASSERT_EQ(media.acquire(), 0);
    ASSERT_TRUE(voice->await(released(SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA)));
    EXPECT_FALSE(voice.holds());
    EXPECT_TRUE(media.holds());
    EXPECT_EQ(media.release(), 0);
    ASSERT_TRUE(voice->await(acquired(SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA)));
    EXPECT_TRUE(voice.holds());
    EXPECT_TRUE(isOurs());
    EXPECT_EQ(static_cast<int>(audio::focusReasonOf(kName)), kVoice);
    EXPECT_THAT(media->all(), IsEmpty());
}

TEST_F(TheRecordingFocus, IsReleasedWhenItsStreamIsDestroyed) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    EXPECT_EQ(stream.destroy(), 0);
    EXPECT_TRUE(isFree());
    EXPECT_EQ(stream.acquire(), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(stream.destroy(), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
}

TEST_F(AStreamThatLosesTheFocus, StopsWaitingWhenItIsDestroyed) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    const Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    ASSERT_TRUE(waitsAtTheBus());
    EXPECT_EQ(stream.destroy(), 0);
    EXPECT_FALSE(waitsAtTheBus());
}

TEST_F(AnAudioStream, MayReleaseTheFocusInItsCallback) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    int code = -1;
    stream.inCallback([&](Change change) {
        if (change == acquired(kAlarm)) {
            code = stream.release();
        }
    });
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(stream->await(released(kAlarm)));
    alarm.kill();
    ASSERT_TRUE(stream->await(acquired(kAlarm)));
    EXPECT_EQ(code, 0);
    EXPECT_TRUE(isFree());
}

TEST_F(AnAudioStream, GetsNoCallbackAfterItIsDestroyed) {
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    std::promise<void> entered;
    std::promise<void> leave;
    std::atomic<bool> left{false};
    stream.inCallback([&](Change) {
        entered.set_value();
        leave.get_future().wait();
        left = true;
    });
    const Child alarm = holder(kAlarm);
    entered.get_future().wait();
    auto leftBefore = std::async(std::launch::async, [&] {
        stream.destroy();
        return left.load();
    });
    ASSERT_TRUE(eventually([] { return !waitsAtTheBus(); })) << "the destruction has begun";
    leave.set_value();
    EXPECT_TRUE(leftBefore.get()) << "the destruction waits for the callback that runs";
}

TEST_F(AnAudioStream, GetsNoCallbackForItsOwnReleasesAndAcquisitionsEvenInQuickSuccession) {
    Stream stream;
    for (int times = 0; times < 500; ++times) {
        ASSERT_EQ(stream.acquire(), 0);
        ASSERT_EQ(stream.release(), 0);
    }
    settle();
    EXPECT_THAT(stream->all(), IsEmpty());
}

TEST_F(AnAudioStream, KnowsTheHolderAfterManyFocusChanges) {
    Stream stream;
    std::atomic<bool> ended{false};
    auto quarrel = std::async(std::launch::async, [&] {
        Rival rival;
        while (!ended) {
            rival.take(kAllowReplacement | kReplace);
            rival.giveBack();
        }
    });
    for (int times = 0; times < 300; ++times) {
        stream.acquire();
        if (times % 3 == 0) {
            stream.release();
        }
    }
    ended = true;
    quarrel.wait();
    EXPECT_TRUE(eventually([&] { return stream.holds() && isOurs(); })) << "the last acquisition was not undone";
    settle();
    const auto all = stream->all();
    for (std::size_t at = 1; at < all.size(); ++at) {
        ASSERT_FALSE(std::get<1>(all[at]) == SOUND_STREAM_FOCUS_STATE_ACQUIRED &&
                     std::get<1>(all[at - 1]) == SOUND_STREAM_FOCUS_STATE_ACQUIRED)
            << "the focus comes back only after it was lost";
    }
}

TEST_F(AnAudioStream, RejectsInvalidArguments) {
    sound_stream_info_h stream = nullptr;
    ASSERT_EQ(sound_manager_create_stream_information(SOUND_STREAM_TYPE_MEDIA, nullptr, nullptr, &stream), 0);
    const auto none = static_cast<sound_stream_focus_mask_e>(0);
    EXPECT_EQ(sound_manager_acquire_focus(stream, none, 0, nullptr), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_release_focus(stream, none, 0, nullptr), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_destroy_stream_information(stream), 0);
    EXPECT_EQ(sound_manager_create_stream_information(SOUND_STREAM_TYPE_MEDIA, nullptr, nullptr, nullptr),
              SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_get_focus_state(nullptr, nullptr, nullptr), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_set_focus_reacquisition(nullptr, true), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
}

TEST(WithoutABus, TheFocusCannotBeAcquiredAndOneLineIsLogged) {
    FILE* pipe = popen("DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere ORVANE_LOG=stderr " FOCUS_HOLDER " 6 2>&1", "r");
    std::string said;
    for (int letter = 0; (letter = fgetc(pipe)) != EOF;) {
        said += static_cast<char>(letter);
    }
    EXPECT_EQ(pclose(pipe), 0);
    EXPECT_THAT(said, testing::EndsWith("acquire -703\nacquire -703\nacquire -703\nrelease -701\ndestroy 0\n"));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 6) << said;
    EXPECT_THAT(said, testing::HasSubstr("no session bus"));
}
