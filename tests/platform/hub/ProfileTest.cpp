// SPDX-License-Identifier: Apache-2.0
// A complete profile refresh with a real hub server and a real database.
#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "Controller/ProfileSession.h"
#include "Support.h"
#include "orvane_da_db.h"

namespace hub_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct DestroyDatabase {
    void operator()(vrd_manager_h manager) const noexcept { vrd_manager_destroy(manager); }
};

bool collect(const char* field, int, const char* value, void* data) noexcept {
    static_cast<std::vector<std::string>*>(data)->push_back(std::string(field) + "=" + value);
    return true;
}

// "field=value" in their order, as another application reads them.
std::vector<std::string> storedFields() {
    vrd_manager_h manager = nullptr;
    EXPECT_EQ(vrd_manager_create(&manager, "Profile"), VRD_ERROR_NONE);
    const std::unique_ptr<vrd_manager_s, DestroyDatabase> owned(manager);
    std::vector<std::string> fields;
    vrd_manager_foreach_table(manager, "Profile", collect, &fields);
    return fields;
}

json family(const std::string& id, const std::vector<std::string>& users) {
    json list = json::array();
    for (const std::string& user : users) {
        list.push_back({{"id", user}, {"name", "Name of " + user}});
    }
    return {{"id", id}, {"name", "Family " + id}, {"users", list}};
}

class ARefresh : public WithAHub {
protected:
    ARefresh() {
        setenv("ORVANE_DB_DIR", folder().c_str(), 1);
        setFamilies({family("f1", {"u1", "u2"}), family("f2", {}), family("f3", {"u3"})});
        start();
        mAccount.serverUri = uri();
        mSession = std::make_unique<OrvaneDA::ProfileSession>();
    }
    ~ARefresh() override { mSession->close(); }

    // The account service repeats its reply until the refresh is over, because the refresh accepts it only while it
    // waits.
    void refresh(const OrvaneDA::Account* account) {
        std::atomic<bool> over{false};
        std::thread accountService;
        mSession->refresh([&] {
            accountService = std::thread([&] {
                while (!over) {
                    mSession->answer(account);
                    std::this_thread::yield();
                }
            });
        });
        over = true;
        accountService.join();
    }
    void refresh() { refresh(&mAccount); }

    const std::vector<std::string> mAll{"userId=u1",           "userName=Name of u1", "userId=u2",
                                        "userName=Name of u2", "userId=u3",           "userName=Name of u3"};
    OrvaneDA::Account mAccount{"guid", "token", "client", {}};

private:
    std::unique_ptr<OrvaneDA::ProfileSession> mSession;
};

TEST_F(ARefresh, StoresTheUsersOfAllFamiliesInTheHubsOrder) {
    refresh();
    EXPECT_EQ(storedFields(), mAll);
    EXPECT_THAT(requests(), ElementsAre("POST /v1/session", "GET /v1/families", "GET /v1/families/f1/users",
                                        "GET /v1/families/f2/users", "GET /v1/families/f3/users"));
}

TEST_F(ARefresh, ReplacesTheUsersStoredBefore) {
    refresh();
    setFamilies(json::array({family("f1", {"u4"})}));
    refresh();
    EXPECT_THAT(storedFields(), ElementsAre("userId=u4", "userName=Name of u4"));
}

TEST_F(ARefresh, StoresTheFamiliesBeforeTheOneThatFails) {
    refresh();
    setFaults({{{"request", 4}, {"kind", "error"}, {"status", 503}}});
    refresh();
    EXPECT_THAT(storedFields(), ElementsAre("userId=u1", "userName=Name of u1", "userId=u2", "userName=Name of u2"));
    EXPECT_EQ(requests().back(), "GET /v1/families/f2/users");
}

TEST_F(ARefresh, StoresNoUsersIfTheFamiliesCannotBeListed) {
    for (const char* kind : {"garbage", "half", "close"}) {
        setFaults(json::array());
        refresh();
        ASSERT_EQ(storedFields(), mAll);
        setFaults({{{"request", 2}, {"kind", kind}}, {{"request", 3}, {"kind", kind}}});
        refresh();
        EXPECT_THAT(storedFields(), IsEmpty()) << kind;
    }
}

TEST_F(ARefresh, StoresNoUsersIfTheHubIsDown) {
    refresh();
    stop();
    refresh();
    EXPECT_THAT(storedFields(), IsEmpty());
}

TEST_F(ARefresh, StoresNoUsersIfTheHubRefusesTheAccount) {
    refresh();
    mAccount.accessToken = "another";
    refresh();
    EXPECT_THAT(storedFields(), IsEmpty());
}

TEST_F(ARefresh, StoresNoUsersAndSendsNoRequestWithoutAnAccount) {
    refresh();
    const std::size_t before = requests().size();
    refresh(nullptr);
    EXPECT_THAT(storedFields(), IsEmpty());
    EXPECT_EQ(requests().size(), before);
}

TEST_F(ARefresh, OfTwentyFamiliesWithTenUsersStoresAll) {
    json families = json::array();
    for (int i = 0; i < 20; ++i) {
        std::vector<std::string> users;
        for (int user = 0; user < 10; ++user) {
            users.push_back(std::to_string(i) + "-" + std::to_string(user));
        }
        families.push_back(family(std::to_string(i), users));
    }
    setFamilies(families);
    refresh();
    const auto fields = storedFields();
    ASSERT_EQ(fields.size(), 400U);
    EXPECT_EQ(fields.front(), "userId=0-0");
    EXPECT_EQ(fields.back(), "userName=Name of 19-9");
}

}  // namespace

}  // namespace hub_test
