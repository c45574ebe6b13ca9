// SPDX-License-Identifier: Apache-2.0
// The playback focus of streams that really play.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "FocusRoom.h"
#include "PausablePlayer.h"
#include "Reports.h"
#include "StandStill.h"
#include "Tone.h"
#include "room/SoundRoom.h"
#include "sound_manager.h"
#include "support/Eventually.h"

namespace {

using Change = std::tuple<int, int, int>;  // mask, state, reason
using Changes = Reports<Change>;

constexpr Change kMediaPlays{SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_ACQUIRED,
                             SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA};
constexpr Change kMediaStops{SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_RELEASED,
                             SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA};
constexpr Change kBellPlays{SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_ACQUIRED,
                            SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION};
constexpr Change kBellStops{SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_RELEASED,
                            SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION};

constexpr Change kAlarmPlays{SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_ACQUIRED,
                             SOUND_STREAM_FOCUS_CHANGED_BY_ALARM};

void changed(int, sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
             sound_stream_focus_change_reason_e reason, const char*, void* changes) {
    static_cast<Changes*>(changes)->add({mask, state, reason});
}

class Watch {
public:
    Watch() {
        EXPECT_EQ(sound_manager_add_focus_state_watch_cb(SOUND_STREAM_FOCUS_FOR_PLAYBACK, changed, &mChanges, &mId), 0);
    }
    ~Watch() { sound_manager_remove_focus_state_watch_cb(mId); }
    Changes* operator->() { return &mChanges; }

private:
    Changes mChanges;
    int mId = -1;
};

// Plays endlessly.
Child player(const std::vector<std::string>& options = {}) {
    std::vector<std::string> words{"pacat", "--playback", "--latency-msec=50", "--client-name=jukebox"};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back("/dev/zero");
    return Child(words);
}

std::pair<int, int> whoPlays() {
    sound_stream_focus_change_reason_e reason{};
    const int result = sound_manager_get_current_playback_focus(&reason, nullptr, nullptr);
    return {result, result == 0 ? reason : -1};
}

bool mediaPlay() {
    return whoPlays() == std::pair<int, int>(0, SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA);
}

}  // namespace

TEST(ThePlaybackFocus, HasNoHolderInASilentRoom) {
    const SoundRoom room;
    EXPECT_EQ(whoPlays().first, SOUND_MANAGER_ERROR_NO_DATA);
}

TEST(ThePlaybackFocus, BelongsToMediaWhileAPlayerPlays) {
    const SoundRoom room;
    Watch changes;
    Child music = player();
    ASSERT_TRUE(changes->await(kMediaPlays));
    sound_stream_focus_change_reason_e reason = SOUND_STREAM_FOCUS_CHANGED_BY_CALL;
    int flags = -1;
    char* who = nullptr;
    ASSERT_EQ(sound_manager_get_current_playback_focus(&reason, &flags, &who), 0);
    EXPECT_EQ(reason, SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA);
    EXPECT_EQ(flags, 0);
    EXPECT_STREQ(who, "jukebox");
    free(who);
    music.stop();
    EXPECT_TRUE(changes->await(kMediaStops));
    EXPECT_EQ(whoPlays().first, SOUND_MANAGER_ERROR_NO_DATA);
    EXPECT_FALSE(changes->stray());
}

TEST(APausedPlayer, DoesNotHoldThePlaybackFocus) {
    const SoundRoom room;
    Watch changes;
    PausablePlayer music;
    ASSERT_TRUE(changes->await(kMediaPlays));
    music.pause(true);
    ASSERT_TRUE(changes->await(kMediaStops));
    EXPECT_EQ(whoPlays().first, SOUND_MANAGER_ERROR_NO_DATA);
    music.pause(false);
    ASSERT_TRUE(eventually([&] { return changes->all().size() == 3; }));
    EXPECT_THAT(changes->all(), testing::ElementsAre(kMediaPlays, kMediaStops, kMediaPlays));
    EXPECT_TRUE(mediaPlay());
}

TEST(ANotificationOverMusic, LeavesTheFocusWithTheMedia) {
    const SoundRoom room;
    Watch changes;
    Child music = player();
    ASSERT_TRUE(changes->await(kMediaPlays));
    Child bell = player({"--property=media.role=event"});
    ASSERT_TRUE(changes->await(kBellPlays));
    EXPECT_EQ(whoPlays(), (std::pair<int, int>(0, SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA)));
    bell.stop();
    ASSERT_TRUE(changes->await(kBellStops));
    music.stop();
    ASSERT_TRUE(changes->await(kMediaStops));
    EXPECT_THAT(changes->all(), testing::ElementsAre(kMediaPlays, kBellPlays, kBellStops, kMediaStops));
}

TEST(AStream, HoldsThePlaybackFocusForTheReasonOfItsRole) {
    const SoundRoom room;
    const std::pair<const char*, int> table[] = {
        {"music", SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA},
        {"video", SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA},
        {"event", SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION},
        {"alarm", SOUND_STREAM_FOCUS_CHANGED_BY_ALARM},
        {"phone", SOUND_STREAM_FOCUS_CHANGED_BY_CALL},
        {"a11y", SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION},
    };
    for (const auto& [role, reason] : table) {
        Watch changes;
        const Child stream = player({std::string("--property=media.role=") + role});
        EXPECT_TRUE(changes->await({SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_ACQUIRED, reason}))
            << role;
        EXPECT_EQ(whoPlays(), (std::pair<int, int>(0, reason))) << role;
    }
}

TEST(AFocusWatch, DoesNotReportWhatPlayedBefore) {
    const SoundRoom room;
    const Child music = player();
    ASSERT_TRUE(eventually(mediaPlay));
    Watch first;
    const Child bell = player({"--property=media.role=event"});
    ASSERT_TRUE(first->await(kBellPlays));
    Watch second;
    const Child alarm = player({"--property=media.role=alarm"});
    ASSERT_TRUE(first->await(kAlarmPlays));
    ASSERT_TRUE(second->await(kAlarmPlays));
    EXPECT_THAT(first->all(), testing::ElementsAre(kBellPlays, kAlarmPlays));
    EXPECT_THAT(second->all(), testing::ElementsAre(kAlarmPlays));
}

TEST(AFocusWatch, DoesNotReportWhatPlayedBeforeTheServerHung) {
    SoundRoom room;
    const Child music = player();
    ASSERT_TRUE(eventually(mediaPlay));
    room.freeze();
    Watch changes;
    room.thaw();
    const Watch another;  // asks what plays
    const Child bell = player({"--property=media.role=event"});
    ASSERT_TRUE(changes->await(kBellPlays));
    EXPECT_THAT(changes->all(), testing::ElementsAre(kBellPlays));
}

TEST(AFocusWatch, DoesNotMistakeAHungServerForSilence) {
    SoundRoom room;
    Watch changes;
    const Child music = player();
    ASSERT_TRUE(changes->await(kMediaPlays));
    std::optional<Child> bell;
    standStillAfter(room, [&] {
        bell = player({"--property=media.role=event"});
        EXPECT_TRUE(eventually([] { return audio::whatPlays().value_or(audio::Playing()).size() == 2; }));
    });
    ASSERT_TRUE(changes->await(kBellPlays));
    EXPECT_THAT(changes->all(), testing::ElementsAre(kMediaPlays, kBellPlays));
}

TEST(AFocusWatch, ReportsThatMediaStopsWhenTheSoundServerDies) {
    SoundRoom room;
    Watch changes;
    Child music = player();
    ASSERT_TRUE(changes->await(kMediaPlays));
    room.kill();
    EXPECT_TRUE(changes->await(kMediaStops));
    EXPECT_EQ(whoPlays().first, SOUND_MANAGER_ERROR_INTERNAL);
    music.stop();
    room.start();
    const Child bell = player({"--property=media.role=event"});
    EXPECT_TRUE(changes->await(kBellPlays)) << "it watches the new server";
}

TEST(AFocusWatch, RejectsInvalidArguments) {
    int id = -1;
    EXPECT_EQ(sound_manager_add_focus_state_watch_cb(SOUND_STREAM_FOCUS_FOR_PLAYBACK, nullptr, nullptr, &id),
              SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_add_focus_state_watch_cb(static_cast<sound_stream_focus_mask_e>(8), changed, nullptr, &id),
              SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_remove_focus_state_watch_cb(-1), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
}
