// SPDX-License-Identifier: Apache-2.0
#include "Util/Sound/SoundStreamWatcher.h"

#include <atomic>
#include <thread>

#include "fake/audio/FakeSound.h"
#include "fake/data/FakeHousehold.h"
#include "unit/Fixture.h"

using Util::SoundStreamWatcher;

namespace {

constexpr auto PLAYBACK = SOUND_STREAM_FOCUS_FOR_PLAYBACK;
constexpr auto RELEASED = SOUND_STREAM_FOCUS_STATE_RELEASED;
constexpr auto ACQUIRED = SOUND_STREAM_FOCUS_STATE_ACQUIRED;
constexpr auto BY_MEDIA = SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
constexpr auto BY_ALARM = SOUND_STREAM_FOCUS_CHANGED_BY_ALARM;

}  // namespace

class SoundStreamWatcherTest : public PlatformTest {
protected:
    static void nobodyPlays() {
        fake::platform().answer("sound_manager_get_current_playback_focus", SOUND_MANAGER_ERROR_NO_DATA);
    }
    static void briefing(const char* field, int kind, const char* value) {
        fake::setTable("MorningBrief", {{"other", 1, "Play"}, {field, kind, value}});
    }
};

TEST_F(SoundStreamWatcherTest, WithoutAFocusHolderTheOutputIsAvailable) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "No one has media focus for playback!"));
}

TEST_F(SoundStreamWatcherTest, WithAMediaPlayersFocusAtTheStartTheOutputIsUnavailable) {
    fake::setPlaybackFocus(BY_MEDIA);
    SoundStreamWatcher watcher;
    EXPECT_FALSE(watcher.isSoundStreamAvailable());
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Some media has focus for playback: 3"));
}

TEST_F(SoundStreamWatcherTest, WithAnotherFocusAtTheStartTheOutputIsAvailable) {
    fake::setPlaybackFocus(BY_ALARM);
    SoundStreamWatcher watcher;
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
}

TEST_F(SoundStreamWatcherTest, AfterAFailedQueryTheOutputIsUnavailable) {
    fake::platform().answer("sound_manager_get_current_playback_focus", -703);
    SoundStreamWatcher watcher;
    EXPECT_FALSE(watcher.isSoundStreamAvailable());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to get current playback focus : -703"));
}

TEST_F(SoundStreamWatcherTest, MediaThatAcquiresAndReleasesTheFocusChangesTheResult) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    fake::changePlaybackFocus(PLAYBACK, ACQUIRED, BY_MEDIA);
    EXPECT_FALSE(watcher.isSoundStreamAvailable());
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Focus state changed!"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "For Playback By media!"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "State Acquired"));
    fake::changePlaybackFocus(PLAYBACK, RELEASED, BY_MEDIA);
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "State Released"));
}

TEST_F(SoundStreamWatcherTest, AnotherReasonOrAnotherFocusDoesNotChangeTheResult) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    fake::changePlaybackFocus(PLAYBACK, ACQUIRED, BY_ALARM);
    fake::changePlaybackFocus(SOUND_STREAM_FOCUS_FOR_RECORDING, ACQUIRED, BY_MEDIA);
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    EXPECT_EQ(fake::platform().countLogged("Focus state changed!"), 2u);
    EXPECT_EQ(fake::platform().countLogged("For Playback By media!"), 0u);
}

TEST_F(SoundStreamWatcherTest, AnUnknownFocusStateDoesNotChangeTheResult) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    const auto other = static_cast<sound_stream_focus_state_e>(2);
    for (const auto& [state, available] : {std::pair(RELEASED, true), std::pair(ACQUIRED, false)}) {
        fake::changePlaybackFocus(PLAYBACK, state, BY_MEDIA);
        fake::platform().forgetCalls();
        fake::changePlaybackFocus(PLAYBACK, other, BY_MEDIA);
        EXPECT_EQ(watcher.isSoundStreamAvailable(), available);
        EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "For Playback By media!"));
        EXPECT_EQ(fake::platform().logs().size(), 2u) << "no line for the state";
    }
}

TEST_F(SoundStreamWatcherTest, AReleaseByAnotherReasonDoesNotChangeTheResult) {
    fake::setPlaybackFocus(BY_MEDIA);
    SoundStreamWatcher watcher;
    fake::changePlaybackFocus(PLAYBACK, RELEASED, BY_ALARM);
    EXPECT_FALSE(watcher.isSoundStreamAvailable());
}

TEST_F(SoundStreamWatcherTest, DuringAMorningBriefingTheOutputIsUnavailableRegardlessOfTheFocus) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    briefing("isMorningBriefPlaying", 1, "Play");
    EXPECT_FALSE(watcher.isSoundStreamAvailable());
    briefing("isMorningBriefPlaying", 1, "play");
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    briefing("isMorningBriefPlaying", 2, "Play");
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
}

TEST_F(SoundStreamWatcherTest, OneThreadAtATimeReadsTheDatabase) {
    nobodyPlays();
    SoundStreamWatcher watcher;
    std::atomic<int> walking{0};
    std::atomic<bool> together{false};
    fake::platform().onCall("vrd_manager_foreach_table", [&](const fake::Call&) {
        if (++walking > 1) {
            together = true;
        }
        fake::platform().waitUntil([&] { return together.load(); }, std::chrono::milliseconds(100));
        --walking;
    });
    std::thread another([&] { EXPECT_TRUE(watcher.isSoundStreamAvailable()); });
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    another.join();
    EXPECT_FALSE(together);
    EXPECT_EQ(fake::platform().count("vrd_manager_foreach_table"), 2u);
}

TEST_F(SoundStreamWatcherTest, WithoutADatabaseTheBriefingIsIgnored) {
    nobodyPlays();
    fake::platform().answer("vrd_manager_create", -1102);
    SoundStreamWatcher watcher;
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
    EXPECT_EQ(fake::platform().count("vrd_manager_foreach_table"), 0u);
}

TEST_F(SoundStreamWatcherTest, AFailedRegistrationIsLoggedAndKeepsTheFirstResult) {
    fake::platform().answer("sound_manager_add_focus_state_watch_cb", -22);
    nobodyPlays();
    SoundStreamWatcher watcher;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to add focus state watch cb : -22"));
    EXPECT_TRUE(watcher.isSoundStreamAvailable());
}

TEST_F(SoundStreamWatcherTest, PlatformCallsAreMadeInOrder) {
    { SoundStreamWatcher watcher; }
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"sound_manager_get_current_playback_focus()", "sound_manager_add_focus_state_watch_cb(1)",
                     "vrd_manager_create(Morning Brief)", "sound_manager_remove_focus_state_watch_cb(5)",
                     "vrd_manager_destroy()"}));
}
