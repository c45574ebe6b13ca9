// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "OtherApp.h"
#include "app_event.h"
#include "appfw/Bundle.h"
#include "bus/SessionBus.h"
#include "mainloop/MainLoopPost.h"
#include "support/MainLoop.h"

namespace {

constexpr char ACCOUNT_ID[] = "org.orvane.account";
constexpr char EVENT[] = "event.org.orvane.account.notification";

struct Received {
    int count = 0;
    std::string name;
    bundle_s data;
};

void onEvent(const char* name, bundle* data, void* received) noexcept {
    auto* all = static_cast<Received*>(received);
    *all = {all->count + 1, name, *data};
}

class AnEventOfTheAccountService : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(event_add_event_handler(EVENT, onEvent, &mReceived, &mHandler), EVENT_ERROR_NONE);
        settle();
    }
    void TearDown() override {
        if (mHandler != nullptr) {
            event_remove_event_handler(mHandler);
        }
    }
    // Returns when every earlier event is posted to the main loop and the subscription is active.
    static void settle() {
        bus::session().hasOwner(ACCOUNT_ID);
        bus::ioThread().run([] {});
    }
    bool receives(int count) {
        return runMainLoopUntil([=] { return mReceived.count == count; });
    }

    Received mReceived;
    event_handler_h mHandler = nullptr;
};

TEST_F(AnEventOfTheAccountService, ReachesTheHandlerOnTheMainLoopWithItsData) {
    const OtherApp account(ACCOUNT_ID);
    account.announce(EVENT);
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(mReceived.name, EVENT);
    ASSERT_EQ(mReceived.data.entries.size(), 1U);
    EXPECT_EQ(mReceived.data.entries[0].first, "key");
    EXPECT_EQ(mReceived.data.entries[0].second.value, "value");
}

TEST_F(AnEventOfTheAccountService, IsIgnoredIfAnotherApplicationEmitsIt) {
    const OtherApp impostor("com.example.impostor");
    const OtherApp account(ACCOUNT_ID);
    impostor.announce(EVENT);
    account.announce("event.org.orvane.account.other");
    account.announce(EVENT);
    account.announce(EVENT);
    ASSERT_TRUE(receives(2));
}

TEST_F(AnEventOfTheAccountService, ReachesTheHandlerAfterTheServiceRestarts) {
    OtherApp first(ACCOUNT_ID);
    first.announce(EVENT);
    ASSERT_TRUE(receives(1));
    first.leave();
    const OtherApp second(ACCOUNT_ID);
    second.announce(EVENT);
    EXPECT_TRUE(receives(2));
}

TEST_F(AnEventOfTheAccountService, DoesNotReachARemovedHandlerEvenIfItHasArrived) {
    Received others;
    event_handler_h other = nullptr;
    ASSERT_EQ(event_add_event_handler(EVENT, onEvent, &others, &other), EVENT_ERROR_NONE);
    const OtherApp account(ACCOUNT_ID);
    account.announce(EVENT);
    settle();
    EXPECT_EQ(event_remove_event_handler(mHandler), EVENT_ERROR_NONE);
    EXPECT_EQ(event_remove_event_handler(mHandler), EVENT_ERROR_INVALID_PARAMETER);
    mHandler = nullptr;
    EXPECT_TRUE(runMainLoopUntil([&] { return others.count == 1; }));
    EXPECT_EQ(mReceived.count, 0);
    event_remove_event_handler(other);
}

TEST_F(AnEventOfTheAccountService, ThatHasArrivedDoesNotReachAHandlerAddedLater) {
    const OtherApp account(ACCOUNT_ID);
    account.announce(EVENT);
    settle();
    event_remove_event_handler(mHandler);
    // The new handler has the same user data as the removed one.
    SetUp();
    account.announce(EVENT);
    settle();
    bool posted = false;
    postToMainLoop([&] { posted = true; });
    ASSERT_TRUE(runMainLoopUntil([&] { return posted; }));
    EXPECT_EQ(mReceived.count, 1);
}

TEST_F(AnEventOfTheAccountService, ReachesTheOtherHandlersAfterACallbackThrows) {
    int calls = 0;
    const auto throws = [](const char*, bundle*, void* count) {
        ++*static_cast<int*>(count);
        throw std::runtime_error("a fault of the callback");
    };
    event_handler_h faulty = nullptr;
    ASSERT_EQ(event_add_event_handler(EVENT, throws, &calls, &faulty), EVENT_ERROR_NONE);
    const OtherApp account(ACCOUNT_ID);
    account.announce(EVENT);
    account.announce(EVENT);
    EXPECT_TRUE(runMainLoopUntil([&] { return calls == 2 && mReceived.count == 2; }));
    event_remove_event_handler(faulty);
}

TEST(AnEventName, WithoutAnApplicationIdIsRefused) {
    event_handler_h handler = nullptr;
    for (const char* name : {"", "event.", "event.x", "org.orvane.account.notification"}) {
        EXPECT_EQ(event_add_event_handler(name, onEvent, nullptr, &handler), EVENT_ERROR_INVALID_PARAMETER) << name;
    }
    EXPECT_EQ(event_add_event_handler(nullptr, onEvent, nullptr, &handler), EVENT_ERROR_INVALID_PARAMETER);
}

}  // namespace
