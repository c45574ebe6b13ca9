// What the UI gets while a person speaks: words, the start of speech, the level.
#include <gtest/gtest.h>
#include <sys/inotify.h>

#include <array>

#include "Person.h"

namespace {

constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";

// Counts how often a file is written.
class Writes {
public:
    explicit Writes(const char* path) : mInotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(inotify_add_watch(mInotify, path, IN_CLOSE_WRITE), 0);
    }
    ~Writes() { close(mInotify); }
    Writes(const Writes&) = delete;
    Writes& operator=(const Writes&) = delete;

    // Since the last call.
    int count() {
        // One watch on one file: the events carry no name and have one size.
        std::array<inotify_event, 1024> events{};
        const ssize_t size = read(mInotify, events.data(), sizeof events);
        return size < 0 ? 0 : static_cast<int>(size / static_cast<ssize_t>(sizeof(inotify_event)));
    }

private:
    int mInotify;
};

}  // namespace

TEST(PartialText, ReachesTheUiBeforeThePersonHasFinished) {
    Person person;
    person.wakes();
    person.appliance.turnPage();
    person.says("show me the recipe for pancakes");  // returns when the last word has been played
    EXPECT_GE(person.appliance.count(sim::kUi, {{"event", "partial"}, {"final", false}}), 2);
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "state"}, {"state", "Processing"}}), 0);
    person.appliance.awaitState("Ready");
    EXPECT_EQ(person.appliance.count(
                  sim::kUi, {{"event", "partial"}, {"final", true}, {"text", "show me the recipe for pancakes"}}),
              1);
}

TEST(TheStartOfSpeech, IsToldOnceInARecognition) {
    Person person;
    person.wakes();
    person.appliance.turnPage();
    person.says("open music");
    person.appliance.awaitState("Ready");
    EXPECT_EQ(person.appliance.count(sim::kUi, {{"event", "speech detected"}}), 1);
}

TEST(TheLevelFile, ChangesFiftyTimesASecondWhileRecordingAndStandsStillOtherwise) {
    Person person;
    Writes writes(kLevelFile);
    person.says("good morning everybody");
    EXPECT_EQ(writes.count(), 0);

    person.wakes();
    writes.count();
    const double begin = sim::monotonicNow();
    person.says("show me the recipe for pancakes");
    const double rate = writes.count() / (sim::monotonicNow() - begin);
    // Not every 20 ms bring another whole decibel, and the timer may be late on a busy machine.
    EXPECT_GT(rate, 25);
    EXPECT_LT(rate, 52);

    person.appliance.awaitState("Ready");
    writes.count();
    person.says("good morning everybody");
    EXPECT_EQ(writes.count(), 0);
}
