// SPDX-License-Identifier: Apache-2.0
#include "process/Owner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <atomic>
#include <future>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using process::Call;
using process::Ended;
using process::Owner;
using testing::ElementsAre;

std::vector<std::string> events;

struct First {
    ~First() { events.emplace_back("first destroyed"); }
    void stop() noexcept { events.emplace_back("first stopped"); }
};
struct Second {
    ~Second() { events.emplace_back("second destroyed"); }
};
struct Third {
    ~Third() { events.emplace_back("third destroyed"); }
    void stop() noexcept { events.emplace_back("third stopped"); }
};

class AnOwner : public testing::Test {
protected:
    AnOwner() { events.clear(); }
    Owner mOwner;
};

TEST_F(AnOwner, CreatesOneObjectOfAType) {
    EXPECT_EQ(&mOwner.get<First>(), &mOwner.get<First>());
}

TEST_F(AnOwner, CreatesOneObjectForAllThreads) {
    std::set<First*> objects;
    std::mutex mutex;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            First& object = mOwner.get<First>();
            const std::lock_guard lock(mutex);
            objects.insert(&object);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(objects.size(), 1U);
}

TEST_F(AnOwner, StopsEveryThreadBeforeItDestroysTheNewestObjectFirst) {
    mOwner.get<First>();
    mOwner.get<Second>();
    mOwner.get<Third>();
    mOwner.end();
    EXPECT_THAT(events, ElementsAre("third stopped", "first stopped", "third destroyed", "second destroyed",
                                    "first destroyed"));
}

Owner* ownerOfUser = nullptr;
struct User {
    User() : first(ownerOfUser->get<First>()) {}
    ~User() { events.emplace_back("user destroyed"); }
    First& first;
};

TEST_F(AnOwner, DestroysAnObjectBeforeWhatItUses) {
    ownerOfUser = &mOwner;
    mOwner.get<User>();
    mOwner.end();
    EXPECT_THAT(events, ElementsAre("first stopped", "user destroyed", "first destroyed"));
}

int attempts = 0;
struct Unwilling {
    Unwilling() {
        if (++attempts == 1) {
            throw std::runtime_error("not yet");
        }
    }
};

TEST_F(AnOwner, TriesAgainAfterAConstructorHasThrown) {
    attempts = 0;
    EXPECT_THROW(mOwner.get<Unwilling>(), std::runtime_error);
    EXPECT_NO_THROW(mOwner.get<Unwilling>());
}

TEST_F(AnOwner, RefusesCallsAfterItsEnd) {
    mOwner.get<First>();
    mOwner.end();
    const Call call;
    EXPECT_THROW(mOwner.get<First>(), Ended);
    EXPECT_THROW(mOwner.get<Second>(), Ended);
}

TEST_F(AnOwner, WaitsForACallInProgress) {
    std::promise<void> inside;
    std::promise<void> ending;
    std::thread caller([&] {
        const Call call;
        mOwner.get<First>();
        inside.set_value();
        ending.get_future().wait();
        {
            const Call within;
            mOwner.get<Second>();  // part of the call that began before the end
        }
        events.emplace_back("call ended");
    });
    inside.get_future().wait();
    std::thread ender([&] {
        ending.set_value();
        mOwner.end();
    });
    caller.join();
    ender.join();
    EXPECT_THAT(events, ElementsAre("call ended", "first stopped", "second destroyed", "first destroyed"));
}

TEST_F(AnOwner, LeavesItsObjectsToACallThatDoesNotReturn) {
    std::promise<void> inside;
    std::promise<void> ended;
    std::thread caller([&] {
        const Call call;
        mOwner.get<First>();
        inside.set_value();
        ended.get_future().wait();
    });
    inside.get_future().wait();
    mOwner.end();
    EXPECT_THAT(events, ElementsAre());
    ended.set_value();
    caller.join();
}

TEST_F(AnOwner, LetsItsThreadsUseItUntilTheyStop) {
    struct Busy {
        Busy() = default;
        ~Busy() { stop(); }
        void stop() noexcept {
            stopping = true;
            if (thread.joinable()) {
                thread.join();
            }
        }
        std::atomic<bool> stopping{false};
        std::thread thread;
    };
    mOwner.get<First>();
    mOwner.get<Busy>().thread = std::thread([this] {
        while (!mOwner.get<Busy>().stopping) {
            mOwner.get<First>();
        }
    });
    mOwner.end();
    EXPECT_THAT(events, ElementsAre("first stopped", "first destroyed"));
}

TEST(TheOwnerOfAProcess, EndsAfterTheStaticObjects) {
    FILE* pipe = popen(PROCESS_PROGRAM, "r");
    char text[1024] = "";
    const size_t size = fread(text, 1, sizeof text - 1, pipe);
    EXPECT_EQ(pclose(pipe), 0);
    EXPECT_EQ(std::string(text, size), "main() reads 7\nthe static object reads 7\nthe shared object is destroyed\n");
}

}  // namespace
