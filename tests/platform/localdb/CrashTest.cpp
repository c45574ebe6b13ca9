// SPDX-License-Identifier: Apache-2.0
// A process that dies during an update.
#include <signal.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "Support.h"

namespace localdb_test {

namespace {

class AnUpdate : public DatabaseFolder {};

constexpr int kRounds = 60;

// The kernel kills this process after this time.
void dieIn(long nanoseconds) {
    sigevent death{};
    death.sigev_notify = SIGEV_SIGNAL;
    death.sigev_signo = SIGKILL;
    timer_t timer{};
    ASSERT_EQ(timer_create(CLOCK_MONOTONIC, &death, &timer), 0);
    const itimerspec when{{0, 0}, {0, nanoseconds}};
    ASSERT_EQ(timer_settime(timer, 0, &when, nullptr), 0);
}

void updateUntilDeath(long nanoseconds) {
    const Manager manager = openDatabase("Profile");
    const List lists[] = {users("old", 60), users("new", 90)};
    dieIn(nanoseconds);
    for (int i = 0; update(manager.get(), lists[i % 2]) == VRD_ERROR_NONE; ++i) {
    }
    FAIL() << "an update failed";
}

// How long one update takes on this machine, in nanoseconds.
long durationOfAnUpdate() {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), users("new", 90));
    const auto start = std::chrono::steady_clock::now();
    update(manager.get(), users("old", 60));
    return std::chrono::nanoseconds(std::chrono::steady_clock::now() - start).count();
}

TEST_F(AnUpdate, LeavesTheOldListOrTheNewOneWheneverTheProcessDies) {
    std::mt19937 random(20240711);
    std::uniform_int_distribution<long> moment(1, std::min(8 * durationOfAnUpdate(), 900'000'000L));
    int seen[2] = {0, 0};
    for (int round = 0; round < kRounds; ++round) {
        const long nanoseconds = moment(random);
        ASSERT_EQ(await(inChild([=] { updateUntilDeath(nanoseconds); })), 128 + SIGKILL);
        const Manager manager = openDatabase("Profile");
        const std::string mark = markOf(walk(manager.get(), "Profile"));
        ASSERT_TRUE(mark == "old" || mark == "new") << mark << " after " << nanoseconds << " ns";
        ++seen[mark == "new"];
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
}

TEST_F(AnUpdate, SucceedsAfterAProcessDiedDuringOne) {
    ASSERT_EQ(await(inChild([] { updateUntilDeath(3'000'000); })), 128 + SIGKILL);
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(update(manager.get(), users("later", 5)), VRD_ERROR_NONE);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "later");
}

}  // namespace

}  // namespace localdb_test
