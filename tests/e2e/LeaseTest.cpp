// SPDX-License-Identifier: Apache-2.0
#include "Lease.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

namespace {

class ALease : public testing::Test {
protected:
    ~ALease() override { close(mEnds[0]); }

    // What the keeper has received since the last call.
    std::vector<int> received() const {
        std::vector<int> levels;
        for (int level = 0; recv(mEnds[0], &level, sizeof level, MSG_DONTWAIT) == sizeof level;) {
            levels.push_back(level);
        }
        return levels;
    }

    std::array<int, 2> mEnds = [] {
        std::array<int, 2> ends{};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()), 0);
        return ends;
    }();
    Lease mLease{mEnds[1]};
};

TEST_F(ALease, IsReleasedWhenTheVolumeHasRisenToItsLevel) {
    mLease.hold(9);
    mLease.releaseAt(9);
    mLease.reached(8);
    EXPECT_EQ(received(), std::vector<int>{9});
    mLease.reached(9);
    mLease.reached(9);
    EXPECT_EQ(received(), std::vector<int>{kNoLevel});
}

TEST_F(ALease, IsNotReleasedBeforeAReleaseIsRequested) {
    mLease.hold(9);
    mLease.reached(15);
    EXPECT_EQ(received(), std::vector<int>{9});
}

// The sound manager's thread reports a level while the main thread holds the lease for the next fade.
TEST_F(ALease, HeldAgainWhileItIsReleasedStaysHeld) {
    constexpr int kTimes = 5000;
    std::atomic<int> turn{0};
    std::thread soundManager([&] {
        for (int time = 1; time <= kTimes; ++time) {
            while (turn < time) {
                std::this_thread::yield();
            }
            mLease.reached(9);
            turn = -time;
        }
    });
    int lost = 0;
    for (int time = 1; time <= kTimes; ++time) {
        mLease.releaseAt(9);
        turn = time;
        mLease.hold(7);
        while (turn != -time) {
            std::this_thread::yield();
        }
        lost += received().back() == 7 ? 0 : 1;
    }
    soundManager.join();
    EXPECT_EQ(lost, 0);
}

}  // namespace
