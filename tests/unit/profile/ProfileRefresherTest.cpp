// SPDX-License-Identifier: Apache-2.0
#include "Controller/ProfileRefresher.h"

#include <atomic>

#include "Controller/ProfileSession.h"
#include "fake/app/FakeMessages.h"
#include "fake/data/FakeHousehold.h"
#include "fake/data/FakeSettings.h"
#include "unit/Fixture.h"

using OrvaneDA::ProfileRefresher;

class ProfileRefresherTest : public SendingTest {
protected:
    void SetUp() override {
        SendingTest::SetUp();
        fake::setFamilies({{"f1", {{"u1", "Ann"}, {"u2", "Bob"}}, 0}, {"f2", {}, 0}, {"f3", {{"u3", "Cy"}}, 0}});
    }
    void TearDown() override {
        // Workers are detached; the last owner of the ProfileSession closes hub and database.
        EXPECT_TRUE(fake::platform().waitFor("ks_server_destroy"));
        EXPECT_TRUE(fake::platform().waitFor("vrd_manager_destroy"));
        EXPECT_EQ(fake::openRecords(), 0);
        SendingTest::TearDown();
    }

    static app_control_s account(const char* status = "true", const char* token = "token") {
        return {{},
                {},
                {},
                {{"quorbit_account_status", status},
                 {"quorbit_account_guid", "guid"},
                 {"quorbit_account_access_token", token},
                 {"quorbit_account_client_id", "client"},
                 {"quorbit_account_server_uri", "https://hub"}},
                {}};
    }
    // Replies to the last account request until a worker's wait has ended.
    static bool answer(app_control_s reply, app_control_result_e result = APP_CONTROL_RESULT_SUCCEEDED) {
        if (!fake::platform().waitUntil([] { return !fake::launches().empty(); })) {
            return false;
        }
        const fake::Launch launch = fake::launches().back();
        const size_t before = fake::platform().count("vrd_manager_private_update");
        // A worker that does not wait yet misses the reply.
        return fake::platform().waitUntil([&] {
            launch.callback(nullptr, &reply, result, launch.userData);
            return fake::platform().count("vrd_manager_private_update") > before;
        });
    }
    // Destroys the refresher while its worker is in that call, which ends only afterwards.
    static void destroyDuring(const char* call) {
        std::atomic<bool> gone{false};
        fake::platform().onCall(
            call, [&](const fake::Call&) { EXPECT_TRUE(fake::platform().waitUntil([&] { return gone.load(); })); });
        auto refresher = std::make_unique<ProfileRefresher>();
        ASSERT_TRUE(fake::waitForLaunches(1));
        const fake::Launch launch = fake::launches().back();
        app_control_s reply = account();
        ASSERT_TRUE(fake::platform().waitUntil([&] {
            launch.callback(nullptr, &reply, APP_CONTROL_RESULT_SUCCEEDED, launch.userData);
            return fake::platform().count(call) == 1;
        }));
        refresher.reset();
        EXPECT_EQ(fake::platform().count("ks_server_destroy"), 0u) << "the worker still uses it";
        gone = true;
        ASSERT_TRUE(fake::platform().waitFor("vrd_manager_destroy"));
    }
    static Texts hub() {
        return fake::platform().textsOf({"ks_server_sa", "ks_server_profile", "vrd_manager_private"});
    }
};

TEST_F(ProfileRefresherTest, TheHouseholdsUsersAreFetchedAndStored) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::launchTexts().at(0), "org.orvane.account get_service_status -");
    EXPECT_EQ(hub(), (Texts{"ks_server_sa_account_set(guid, token, client, https://hub)",
                            "ks_server_profile_families_get()", "ks_server_profile_families_family_users_get(f1)",
                            "ks_server_profile_families_family_users_get(f2)",
                            "ks_server_profile_families_family_users_get(f3)", "vrd_manager_private_update(3)"}));
    EXPECT_EQ(fake::storedRecords(),
              (Texts{"userId=u1 userName=Ann", "userId=u2 userName=Bob", "userId=u3 userName=Cy"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "result_e:[0]"));
}

TEST_F(ProfileRefresherTest, AFamilyWithoutUsersAddsNothingAndTheNextIsFetched) {
    fake::setFamilies({{"f1", {}, 0}, {"f2", {{"u2", "Bob"}}, 0}});
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::platform().count("vrd_bundle_create"), 1u);
    EXPECT_EQ(fake::storedRecords(), Texts{"userId=u2 userName=Bob"});
}

TEST_F(ProfileRefresherTest, ARecordHasTheUsersIdAndName) {
    fake::setFamilies({{"f1", {{"u1", "Ann"}}, 0}});
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::platform().textsOf({"vrd_bundle", "vrd_manager_private"}),
              (Texts{"vrd_bundle_create()", "vrd_bundle_add_str(userId, u1)", "vrd_bundle_add_str(userName, Ann)",
                     "vrd_manager_private_update(1)"}));
}

TEST_F(ProfileRefresherTest, TheAccountRequestNamesTheRefreshersReplyCallback) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::launches().at(0).callback, &ProfileRefresher::appControlReplyCB);
    EXPECT_EQ(fake::launches().at(0).userData, &refresher);
}

TEST_F(ProfileRefresherTest, DestructionFreesTheRecordsAfterTheHubAndBeforeTheDatabase) {
    auto refresher = std::make_unique<ProfileRefresher>();
    ASSERT_TRUE(answer(account()));
    fake::platform().forgetCalls();
    refresher.reset();
    ASSERT_TRUE(fake::platform().waitFor("vrd_manager_destroy"));
    EXPECT_EQ(fake::platform().textsOf({"event_", "ks_", "vrd_"}),
              (Texts{"event_remove_event_handler()", "ks_server_destroy()", "vrd_bundle_destroy()",
                     "vrd_bundle_destroy()", "vrd_bundle_destroy()", "vrd_manager_destroy()"}));
}

TEST_F(ProfileRefresherTest, ConstructionAndDestructionMakeTheirCallsInOrder) {
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    { ProfileRefresher refresher; }
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"ks_server_create()", "vrd_manager_create(Profile)",
                     "event_add_event_handler(event.org.orvane.account.notification)", "connection_get_type()",
                     "event_remove_event_handler()", "ks_server_destroy()", "vrd_manager_destroy()"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Success to init push profile"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "~ProfileRefresher"));
}

TEST_F(ProfileRefresherTest, WithoutANetworkNothingIsRequested) {
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    auto refresher = std::make_unique<ProfileRefresher>();
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "No network connection."));
    EXPECT_EQ(fake::platform().countLogged("No network connection."), 1u);
    refresher.reset();
    EXPECT_EQ(fake::platform().count("ks_server_destroy"), 1u) << "there is no worker to wait for";
    EXPECT_TRUE(sent().empty());
}

TEST_F(ProfileRefresherTest, AFailedEventHandlerIsLoggedAndNotRemoved) {
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    fake::platform().answer("event_add_event_handler", -401);
    { ProfileRefresher refresher; }
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to init push profile"));
    EXPECT_EQ(fake::platform().count("event_remove_event_handler"), 0u);
}

TEST_F(ProfileRefresherTest, APushNotificationRefreshesAgain) {
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    ProfileRefresher refresher;
    fake::setConnection(CONNECTION_TYPE_ETHERNET);
    fake::emitEvent("event.org.orvane.account.notification");
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "received push message of profile update"));
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::storedRecords().size(), 3u);
}

TEST_F(ProfileRefresherTest, WithoutAReplyForFiveSecondsNoUsersAreStored) {
    const auto start = std::chrono::steady_clock::now();
    ProfileRefresher refresher;
    ASSERT_TRUE(fake::platform().waitFor("vrd_manager_private_update"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4900));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to get quorbit account"));
    EXPECT_EQ(hub(), Texts{"vrd_manager_private_update(0)"});
}

TEST_F(ProfileRefresherTest, ForASignedOutAccountNoUsersAreStored) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account("false")));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to get quorbit account"));
    EXPECT_EQ(hub(), Texts{"vrd_manager_private_update(0)"});
}

TEST_F(ProfileRefresherTest, ForAnAccountWithoutATokenNoUsersAreStored) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account("true", "")));
    EXPECT_EQ(hub(), Texts{"vrd_manager_private_update(0)"});
}

TEST_F(ProfileRefresherTest, AFailedReplyIsLoggedWithItsMessage) {
    ProfileRefresher refresher;
    app_control_s reply = account();
    reply.extras["errorMessage"] = "no account";
    ASSERT_TRUE(answer(reply, APP_CONTROL_RESULT_FAILED));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "errorMessage:[no account]"));
    EXPECT_EQ(hub(), Texts{"vrd_manager_private_update(0)"});
}

TEST_F(ProfileRefresherTest, AnyOtherResultOfAReplyIsNotRead) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account(), APP_CONTROL_RESULT_CANCELED));
    EXPECT_EQ(hub(), Texts{"vrd_manager_private_update(0)"});
}

TEST_F(ProfileRefresherTest, EveryReplyEndsTheWait) {
    ProfileRefresher refresher;
    size_t requests = 0;
    for (auto result : {APP_CONTROL_RESULT_SUCCEEDED, APP_CONTROL_RESULT_FAILED, APP_CONTROL_RESULT_CANCELED,
                        APP_CONTROL_RESULT_APP_STARTED}) {
        // On a busy machine, the wait's five seconds may pass before the reply arrives, so one of several rounds
        // counts.
        bool ended = false;
        for (int round = 0; round < 8 && !ended; ++round) {
            ASSERT_TRUE(fake::waitForLaunches(++requests));
            const auto start = std::chrono::steady_clock::now();
            ASSERT_TRUE(answer(account("false"), result));
            ended = std::chrono::steady_clock::now() - start < std::chrono::milliseconds(4900);
            refresher.updateProfileInfo();
        }
        ASSERT_TRUE(ended) << result;
    }
    ASSERT_TRUE(fake::waitForLaunches(++requests));
    ASSERT_TRUE(answer(account("false")));
}

TEST_F(ProfileRefresherTest, OneRefreshAtATimeUsesTheHubAndAnEarlyReplyIsUsedAfterTheFullWait) {
    std::atomic<bool> held{true};
    fake::platform().onCall("ks_server_sa_account_set",
                            [&](const fake::Call&) { EXPECT_TRUE(fake::platform().waitUntil([&] { return !held; })); });
    ProfileRefresher refresher;
    ASSERT_TRUE(fake::waitForLaunches(1));
    const fake::Launch launch = fake::launches().at(0);
    app_control_s reply = account();
    const auto deliver = [&] {
        launch.callback(nullptr, &reply, APP_CONTROL_RESULT_SUCCEEDED, launch.userData);
        return fake::platform().count("ks_server_sa_account_set") == 1;
    };
    ASSERT_TRUE(fake::platform().waitUntil(deliver));
    refresher.updateProfileInfo();
    ASSERT_TRUE(fake::waitForLaunches(2));
    deliver();
    const auto start = std::chrono::steady_clock::now();
    held = false;
    ASSERT_TRUE(fake::platform().waitFor("vrd_manager_private_update", 2));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4900));
    EXPECT_EQ(fake::platform().textsOf({"ks_server_sa", "vrd_manager_private"}),
              (Texts{"ks_server_sa_account_set(guid, token, client, https://hub)", "vrd_manager_private_update(3)",
                     "ks_server_sa_account_set(guid, token, client, https://hub)", "vrd_manager_private_update(3)"}));
}

TEST_F(ProfileRefresherTest, AFailedRefreshRemovesTheStoredUsers) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    ASSERT_EQ(fake::storedRecords().size(), 3u);
    fake::platform().answer("ks_server_profile_families_get", 500);
    refresher.updateProfileInfo();
    ASSERT_TRUE(answer(account()));
    EXPECT_EQ(fake::storedRecords(), Texts{});
}

TEST_F(ProfileRefresherTest, CredentialsAreNotKeptForTheNextRefresh) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    refresher.updateProfileInfo();
    ASSERT_TRUE(fake::waitForLaunches(2));
    ASSERT_TRUE(answer(account("false")));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to get quorbit account"));
    EXPECT_EQ(fake::platform().count("ks_server_sa_account_set"), 1u);
}

TEST_F(ProfileRefresherTest, IfTheHubRefusesTheAccountNoUsersAreStored) {
    fake::platform().answer("ks_server_sa_account_set", 401);
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to set quorbit account"));
    EXPECT_EQ(hub(),
              (Texts{"ks_server_sa_account_set(guid, token, client, https://hub)", "vrd_manager_private_update(0)"}));
}

TEST_F(ProfileRefresherTest, IfTheHubReturnsNoFamiliesNoUsersAreStored) {
    fake::platform().answer("ks_server_profile_families_get", 500);
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "failed to get family list from server: 500"));
    EXPECT_EQ(fake::platform().count("ks_server_profile_families_family_users_get"), 0u);
}

TEST_F(ProfileRefresherTest, AFailureAtTheSecondFamilyKeepsTheFirstFamilysUsersAndEndsTheRefresh) {
    fake::setFamilies({{"f1", {{"u1", "Ann"}}, 0}, {"f2", {{"u2", "Bob"}}, 503}, {"f3", {{"u3", "Cy"}}, 0}});
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "failed to get user list from server: 503"));
    EXPECT_EQ(fake::platform().count("ks_server_profile_families_family_users_get"), 2u);
    EXPECT_EQ(fake::storedRecords(), Texts{"userId=u1 userName=Ann"});
}

TEST_F(ProfileRefresherTest, ASecondRefreshReplacesTheUsersOfTheFirst) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    fake::setFamilies({{"f9", {{"u9", "Zoe"}}, 0}});
    refresher.updateProfileInfo();
    ASSERT_TRUE(answer(account()));
    ASSERT_TRUE(fake::platform().waitUntil([] { return fake::storedRecords() == Texts{"userId=u9 userName=Zoe"}; }));
}

TEST_F(ProfileRefresherTest, ARefresherDestroyedDuringAWaitClosesTheHubWhenTheWorkerEnds) {
    auto refresher = std::make_unique<ProfileRefresher>();
    ASSERT_TRUE(fake::platform().waitUntil([] { return !fake::launches().empty(); }));
    const fake::Launch launch = fake::launches().at(0);
    refresher.reset();
    app_control_s reply = account();
    launch.callback(nullptr, &reply, APP_CONTROL_RESULT_SUCCEEDED, launch.userData);
    ASSERT_TRUE(fake::platform().waitFor("vrd_manager_destroy"));
    EXPECT_EQ(fake::platform().count("vrd_manager_private_update"), 0u) << "the stored users stay";
}

TEST_F(ProfileRefresherTest, ARefresherDestroyedDuringASignInFetchesNothing) {
    destroyDuring("ks_server_sa_account_set");
    EXPECT_EQ(hub(), Texts{"ks_server_sa_account_set(guid, token, client, https://hub)"});
}

TEST_F(ProfileRefresherTest, ARefresherDestroyedDuringAFamilysRequestFetchesNoOtherFamily) {
    destroyDuring("ks_server_profile_families_family_users_get");
    EXPECT_EQ(hub(), (Texts{"ks_server_sa_account_set(guid, token, client, https://hub)",
                            "ks_server_profile_families_get()", "ks_server_profile_families_family_users_get(f1)"}));
}

TEST_F(ProfileRefresherTest, ARefresherDestroyedDuringTheLastFamilysRequestStoresNothing) {
    fake::setFamilies({{"f1", {{"u1", "Ann"}}, 0}});
    destroyDuring("ks_server_profile_families_family_users_get");
    EXPECT_EQ(fake::platform().count("vrd_manager_private_update"), 0u) << "the stored users stay";
}

TEST_F(ProfileRefresherTest, AWorkerThatStartsAfterTheDestructionSendsNothing) {
    OrvaneDA::ProfileSession session;
    session.close();
    session.refresh([] { ADD_FAILURE() << "app control may be gone"; });
    EXPECT_EQ(hub(), Texts{});
}

TEST_F(ProfileRefresherTest, ARefreshThatCannotStartIsLoggedOnceAndLeavesNothingBehind) {
    fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    auto refresher = std::make_unique<ProfileRefresher>();
    fake::setConnection(CONNECTION_TYPE_ETHERNET);
    {
        const NoNewThreads noNewThreads;
        fake::emitEvent("event.org.orvane.account.notification");
    }
    EXPECT_EQ(fake::platform().countLogged("Failed to start a refresh"), 1u);
    refresher.reset();
    EXPECT_EQ(fake::platform().count("ks_server_destroy"), 1u) << "there is no worker to wait for";
}

TEST_F(ProfileRefresherTest, TheRecordsCanBeFreedWithoutTheStoredUsers) {
    ProfileRefresher refresher;
    ASSERT_TRUE(answer(account()));
    refresher.resetBundle();
    EXPECT_NE(fake::platform().logs().back().text.find(": resetBundle("), std::string::npos);
    EXPECT_EQ(fake::openRecords(), 0);
    EXPECT_EQ(fake::storedRecords().size(), 3u);
}
