// SPDX-License-Identifier: Apache-2.0
// The level during a fade, on a virtual clock that the fader thread's sleeps advance.
#include <stdlib.h>

#include <atomic>

#include "Util/Sound/VolumeController.h"
#include "fake/audio/FakeSound.h"
#include "unit/Fixture.h"

using Util::MediaType;
using Util::VolumeController;

namespace {

constexpr int DUCKED = 2;

struct Point {
    int ms;
    int level;  // from then on
    bool operator==(const Point& other) const { return ms == other.ms && level == other.level; }
};

std::ostream& operator<<(std::ostream& out, const Point& point) {
    return out << point.level << " at " << point.ms << " ms";
}

using Drawing = std::vector<Point>;

struct Fade {
    int start;
    int target;
    double seconds;

    int steps() const { return abs(start - target); }
    // Where a fade of even speed would be.
    double ideal(int ms) const { return start + (target - start) * std::min(1.0, ms / (seconds * 1000)); }
    // How many levels `level` is ahead of it; below 0 behind.
    double lead(int ms, int level) const { return (level - ideal(ms)) * (target > start ? 1 : -1); }
};

std::ostream& operator<<(std::ostream& out, const Fade& fade) {
    return out << fade.start << " to " << fade.target << " in " << fade.seconds << " s";
}

}  // namespace

class FadeTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        fake::setPlaybackFocus(SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA);
        fake::mainLoop().onSleep([this](unsigned microseconds) { clock += static_cast<int>(microseconds) / 1000; });
        fake::platform().onCall("sound_manager_set_volume", [this](const fake::Call& call) {
            drawing.push_back({clock, std::stoi(call.args[1])});
        });
    }
    const Drawing& draw(const Fade& fade) {
        clock = 0;
        drawing.clear();
        const bool restores = fade.target > fade.start;
        // For a new controller, the device's level is the user's.
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, restores ? fade.target : fade.start);
        VolumeController controller(MediaType::MEDIA);
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, fade.start);
        controller.setDecreaseCallback([this](void*) { ended = clock; }, nullptr);
        EXPECT_EQ(restores ? controller.restoreVolume(fade.seconds) : controller.decreaseVolume(fade.seconds), 1);
        return drawing;  // the controller's destructor waits for the fade
    }
    std::atomic<int> clock{0};  // virtual, ms
    Drawing drawing;
    int ended = -1;  // when the decrease callback came, ms
};

TEST_F(FadeTest, ADecreaseStepsDownEvenlyInTicksOf50Milliseconds) {
    EXPECT_EQ(draw({8, DUCKED, 1.0}), (Drawing{{0, 7}, {200, 6}, {350, 5}, {500, 4}, {600, 3}, {700, 2}}));
    EXPECT_EQ(ended, 700);
}

TEST_F(FadeTest, ARestoreStepsUpEvenlyInTicksOf50Milliseconds) {
    EXPECT_EQ(draw({DUCKED, 8, 1.0}), (Drawing{{0, 3}, {200, 4}, {350, 5}, {500, 6}, {600, 7}, {700, 8}}));
    EXPECT_EQ(ended, -1) << "only a decrease calls back";
}

// Each wait is a fraction of the remaining time, so a fade starts with a step and becomes faster toward its end.
TEST_F(FadeTest, AFadeStaysNearTheIdealLine) {
    for (const Fade& fade : {Fade{4, DUCKED, 1.0}, Fade{5, DUCKED, 0.5}, Fade{8, DUCKED, 0.5}, Fade{8, DUCKED, 1.0},
                             Fade{10, DUCKED, 3.0}, Fade{15, DUCKED, 2.0}, Fade{15, DUCKED, 5.0}, Fade{DUCKED, 4, 1.0},
                             Fade{DUCKED, 8, 1.0}, Fade{DUCKED, 10, 3.0}, Fade{DUCKED, 15, 2.0}}) {
        SCOPED_TRACE(testing::PrintToString(fade));
        const Drawing drawn = draw(fade);
        int level = fade.start;
        size_t next = 0;
        double ahead = 0;
        double behind = 0;
        for (int ms = 0; ms <= fade.seconds * 1000; ++ms) {
            for (; next < drawn.size() && drawn[next].ms <= ms; ++next) {
                EXPECT_EQ(abs(drawn[next].level - level), 1) << "one level per step, at " << ms << " ms";
                level = drawn[next].level;
            }
            ahead = std::max(ahead, fade.lead(ms, level));
            behind = std::max(behind, -fade.lead(ms, level));
        }
        EXPECT_EQ(level, fade.target) << "at the target when the time is over";
        EXPECT_LE(ahead, 1 + fade.steps() / 4.0) << "levels";
        EXPECT_LE(behind, 0.6) << "levels";
    }
}

TEST_F(FadeTest, AFadeWithLessThanATickPerLevelStepsAtEachTick) {
    EXPECT_EQ(draw({6, DUCKED, 0.001}), (Drawing{{0, 5}, {50, 4}, {100, 3}, {150, 2}}));
}

TEST_F(FadeTest, AFadeOfZeroSecondsSetsItsTargetAtOnce) {
    EXPECT_EQ(draw({8, DUCKED, 0.0}), (Drawing{{0, 2}}));
    EXPECT_EQ(draw({8, DUCKED, -1.0}), (Drawing{{0, 2}}));
    EXPECT_EQ(draw({DUCKED, 8, 0.0}), (Drawing{{0, 8}}));
}

TEST_F(FadeTest, WithoutAThreadAFadeSetsItsTargetAtOnce) {
    const NoNewThreads noNewThreads;
    EXPECT_EQ(draw({8, DUCKED, 1.0}), (Drawing{{0, 2}}));
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(draw({DUCKED, 8, 1.0}), (Drawing{{0, 8}}));
    EXPECT_EQ(fake::platform().countLogged("Failed to start a fade"), 2u);
}

TEST_F(FadeTest, ADecreaseFromLevelThreeSetsItsTargetAtOnce) {
    EXPECT_EQ(draw({3, DUCKED, 1.0}), (Drawing{{0, 2}}));
    EXPECT_EQ(ended, 0);
}

TEST_F(FadeTest, AFadeToTheCurrentLevelSetsItAtOnce) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 8);
    { EXPECT_EQ(VolumeController(MediaType::MEDIA).restoreVolume(30), 1); }
    EXPECT_EQ(drawing, (Drawing{{0, 8}}));
}

TEST_F(FadeTest, AFadeToTheCurrentLevelSurvivesAnotherApplicationsChange) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 8);
    int reads = 0;  // of the level, by the fade
    {
        VolumeController controller(MediaType::MEDIA);
        fake::platform().onCall("sound_manager_get_volume", [&](const fake::Call&) {
            if (++reads == 2) {
                fake::setVolumeLevel(SOUND_TYPE_MEDIA, 5);
            }
        });
        controller.restoreVolume(1.0);
    }
    fake::platform().onCall("sound_manager_get_volume", nullptr);
    EXPECT_EQ(drawing, (Drawing{{0, 8}}));
}

TEST_F(FadeTest, AFadeEndsIfAnotherApplicationSetsTheTargetLevel) {
    fake::mainLoop().onSleep([this](unsigned microseconds) {
        clock += static_cast<int>(microseconds) / 1000;
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, DUCKED);
    });
    EXPECT_EQ(draw({8, DUCKED, 1.0}), (Drawing{{0, 7}, {200, 2}}));
    EXPECT_EQ(ended, 200);
}

TEST_F(FadeTest, ANewFadeStopsTheRunningOneBeforeItsNextStep) {
    constexpr int STEP_MS = 10'000;  // a fade from 8 to 2 in 60 s
    std::atomic<bool> second{false};
    // The first fade waits in its first tick until the second one reads the level, and in later ticks until the second
    // one waits for it. The second fade has no steps.
    fake::mainLoop().onSleep([&, starter = thisThread()](unsigned microseconds) {
        clock += static_cast<int>(microseconds) / 1000;
        fake::platform().waitUntil([&] { return second && sleeps(starter); });
    });
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 8);
    {
        VolumeController controller(MediaType::MEDIA);
        controller.setDecreaseCallback([this](void*) { ended = ended < 0 ? clock.load() : ended; }, nullptr);
        ASSERT_EQ(controller.decreaseVolume(60), 1);
        ASSERT_TRUE(fake::platform().waitUntil([&] { return clock > 0; }));
        EXPECT_EQ(fake::volumesSet(), std::vector<int>{7});
        fake::platform().onCall("sound_manager_get_volume", [&](const fake::Call&) { second = true; });
        EXPECT_EQ(controller.decreaseVolume(0.5), 1);
        fake::platform().onCall("sound_manager_get_volume", nullptr);
        EXPECT_EQ(fake::volumesSet()[1], 2) << "the first sets its own target, and the second starts after it";
    }
    EXPECT_EQ(fake::volumesSet(), (std::vector<int>{7, 2, 2}));
    EXPECT_LT(ended, STEP_MS);
}
