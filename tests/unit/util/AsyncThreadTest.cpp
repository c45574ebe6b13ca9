// SPDX-License-Identifier: Apache-2.0
#include "Util/AsyncThread.h"

#include <atomic>
#include <memory>
#include <thread>

#include "unit/Fixture.h"

using Clock = std::chrono::steady_clock;

class AsyncThreadTest : public PlatformTest {
protected:
    static bool posted() { return fake::platform().count("ecore_main_loop_thread_safe_call_async") > 0; }
};

TEST_F(AsyncThreadTest, QueuedJobsRunOnTheWorkerInOrderAtLeastFiftyMillisecondsApart) {
    Util::AsyncThread worker;
    std::vector<std::pair<int, Clock::time_point>> ran;
    std::vector<pid_t> threads;
    std::atomic<int> done{0};
    for (int i = 0; i < 3; ++i) {
        worker.asyncCall([&, i] {
            ran.push_back({i, Clock::now()});
            threads.push_back(thisThread());
            ++done;
            return false;
        });
    }
    ASSERT_TRUE(fake::platform().waitUntil([&] { return done == 3; }));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(ran[i].first, i);
        EXPECT_NE(threads[i], thisThread());
        EXPECT_EQ(threads[i], threads[0]);
    }
    for (int i = 1; i < 3; ++i) {
        EXPECT_GE(ran[i].second - ran[i - 1].second, std::chrono::milliseconds(50));
    }
}

TEST_F(AsyncThreadTest, AWorkerThatCannotStartIsLoggedAndTheNextCallStartsIt) {
    std::vector<int> ran;
    std::atomic<int> done{0};
    const auto job = [&](int number) {
        return [&, number] {
            ran.push_back(number);
            ++done;
            return false;
        };
    };
    std::unique_ptr<Util::AsyncThread> worker;
    {
        const NoNewThreads noNewThreads;
        worker = std::make_unique<Util::AsyncThread>();
        EXPECT_EQ(fake::platform().countLogged("Failed to start the worker"), 1u);
        worker->asyncCall(job(1));
        EXPECT_EQ(fake::platform().countLogged("Failed to start the worker"), 2u);
    }
    worker->asyncCall(job(2));
    ASSERT_TRUE(fake::platform().waitUntil([&] { return done == 2; }));
    worker.reset();
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
}

TEST_F(AsyncThreadTest, AWorkerThatNeverStartedIsDestroyedWithItsJobs) {
    auto token = std::make_shared<int>(0);
    {
        const NoNewThreads noNewThreads;
        Util::AsyncThread worker;
        worker.asyncCall([token] { return false; });
    }
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(AsyncThreadTest, AJobWhoseConditionIsFalsePostsNothingToTheMainLoop) {
    std::atomic<bool> acted{false};
    std::atomic<int> asked{0};
    Util::AsyncThread worker;
    worker.asyncCall(
        [&] {
            ++asked;
            return false;
        },
        [&] { acted = true; });
    worker.asyncCall([&] {
        ++asked;
        return false;
    });
    ASSERT_TRUE(fake::platform().waitUntil([&] { return asked == 2; }));
    fake::mainLoop().runPosted();
    EXPECT_FALSE(acted);
    EXPECT_FALSE(posted());
}

TEST_F(AsyncThreadTest, AJobWhoseConditionIsTrueRunsItsActionOnTheMainLoop) {
    Util::AsyncThread worker;
    pid_t thread = 0;
    worker.asyncCall([] { return true; }, [&] { thread = thisThread(); });
    ASSERT_TRUE(fake::mainLoop().runUntil([&] { return thread != 0; }));
    EXPECT_EQ(thread, thisThread());
}

TEST_F(AsyncThreadTest, ATrueConditionWithoutAnActionCausesOneCallbackThatDoesNothing) {
    Util::AsyncThread worker;
    worker.asyncCall([] { return true; });
    ASSERT_TRUE(fake::platform().waitFor("ecore_main_loop_thread_safe_call_async"));
    ASSERT_TRUE(fake::platform().waitUntil([] { return fake::mainLoop().runPosted() == 1; }));
    EXPECT_EQ(fake::platform().count("ecore_main_loop_thread_safe_call_async"), 1u);
}

TEST_F(AsyncThreadTest, DestroyingTheWorkerFreesQueuedJobsWithoutRunningThem) {
    auto token = std::make_shared<int>(0);
    std::atomic<int> ran{0};
    std::atomic<bool> ending{false};
    {
        Util::AsyncThread worker;
        // Keeps the worker busy until the destructor waits for it.
        worker.asyncCall([&, destroyer = thisThread()] {
            return !fake::platform().waitUntil([&] { return ending && sleeps(destroyer); });
        });
        for (int i = 0; i < 5; ++i) {
            worker.asyncCall([&, token] { return ++ran, true; }, [&, token] { ++ran; });
        }
        ending = true;
    }
    EXPECT_FALSE(posted());
    EXPECT_EQ(ran, 0);
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(AsyncThreadTest, AnActionAlreadyPostedOutlivesTheWorkerAndFreesItself) {
    auto token = std::make_shared<int>(0);
    bool acted = false;
    {
        Util::AsyncThread worker;
        worker.asyncCall([token] { return true; }, [&acted, token] { acted = true; });
        ASSERT_TRUE(fake::platform().waitFor("ecore_main_loop_thread_safe_call_async"));
    }
    EXPECT_EQ(token.use_count(), 3) << "the main loop holds the job";
    EXPECT_EQ(fake::mainLoop().runPosted(), 1);
    EXPECT_TRUE(acted);
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(AsyncThreadTest, AJobWhoseConditionIsFalseIsFreedAtOnce) {
    auto token = std::make_shared<int>(0);
    Util::AsyncThread worker;
    std::atomic<bool> second{false};
    long holders = 0;
    worker.asyncCall([token] { return false; });
    worker.asyncCall([&] {
        holders = token.use_count();
        second = true;
        return false;
    });
    ASSERT_TRUE(fake::platform().waitUntil([&] { return second.load(); }));
    EXPECT_EQ(holders, 1);
}

TEST_F(AsyncThreadTest, ASynchronousCallReturnsWhenTheMainLoopHasRunIt) {
    Util::AsyncThread worker;
    std::atomic<pid_t> ranOn{0};
    std::atomic<bool> returned{false};
    std::thread caller([&] {
        worker.syncCallEcore([&] { ranOn = thisThread(); });
        returned = true;
    });
    EXPECT_TRUE(fake::platform().waitFor("ecore_main_loop_thread_safe_call_sync"));
    EXPECT_FALSE(fake::platform().waitUntil([&] { return returned.load(); }, std::chrono::milliseconds(100)));
    EXPECT_EQ(ranOn, 0);
    EXPECT_TRUE(fake::mainLoop().runUntil([&] { return returned.load(); }));
    EXPECT_EQ(ranOn, thisThread());
    caller.join();
}

TEST_F(AsyncThreadTest, ASynchronousCallWithoutAnActionReturnsOnceTheMainLoopHasRunIt) {
    Util::AsyncThread worker;
    std::atomic<bool> returned{false};
    std::thread caller([&] {
        worker.syncCallEcore(nullptr);
        returned = true;
    });
    ASSERT_TRUE(fake::mainLoop().runUntil([&] { return returned.load(); }));
    caller.join();
    EXPECT_EQ(fake::platform().count("ecore_main_loop_thread_safe_call_sync"), 1u);
}

TEST_F(AsyncThreadTest, AJobWithoutAConditionEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            Util::AsyncThread worker;
            worker.asyncCall(nullptr);
            fake::platform().waitUntil([] { return false; }, std::chrono::seconds(5));
        },
        "bad_function_call");
}
