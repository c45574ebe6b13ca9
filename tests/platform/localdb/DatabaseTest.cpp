// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "Support.h"
#include "sqlite/Database.h"

namespace localdb_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ADatabase : public DatabaseFolder {};
class ADatabaseName : public DatabaseFolder {};
class ARecord : public DatabaseFolder {};

const List kTwoUsers = {{{"userId", "1"}, {"userName", "Ann"}}, {{"userId", "2"}, {"userName", "Bo"}}};

TEST_F(ADatabase, ReturnsItsRecordsFieldByFieldInTheirOrder) {
    const Manager manager = openDatabase("Profile");
    ASSERT_EQ(update(manager.get(), kTwoUsers), VRD_ERROR_NONE);
    EXPECT_THAT(walk(manager.get(), "Profile"),
                ElementsAre("userId:1=1", "userName:1=Ann", "userId:1=2", "userName:1=Bo"));
}

TEST_F(ADatabase, KeepsItsRecordsWhenItIsClosed) {
    update(openDatabase("Profile").get(), kTwoUsers);
    EXPECT_THAT(walk(openDatabase("Profile").get(), "Profile"), SizeIs(4));
}

TEST_F(ADatabase, HoldsOnlyTheRecordsOfTheLastUpdate) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    ASSERT_EQ(update(manager.get(), {{{"userId", "3"}}}), VRD_ERROR_NONE);
    EXPECT_THAT(walk(manager.get(), "Profile"), ElementsAre("userId:1=3"));
}

TEST_F(ADatabase, IsEmptyAfterAnUpdateWithoutRecords) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    ASSERT_EQ(update(manager.get(), {}), VRD_ERROR_NONE);
    EXPECT_THAT(walk(manager.get(), "Profile"), IsEmpty());
}

TEST_F(ADatabase, HasFilesThatOnlyTheOwnerMayReadWhateverTheUmask) {
    const mode_t usual = umask(0);
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    umask(usual);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path())) {
        EXPECT_EQ(entry.status().permissions(), std::filesystem::perms(0600)) << entry.path();
        ++files;
    }
    EXPECT_EQ(files, 3) << "the database and its two logs";
}

TEST_F(ADatabase, OfAnEarlierVersionLosesThePermissionsOfOtherUsers) {
    update(openDatabase("Profile").get(), kTwoUsers);
    ASSERT_EQ(chmod(file("Profile").c_str(), 0644), 0);
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(std::filesystem::status(file("Profile")).permissions(), std::filesystem::perms(0600));
}

TEST_F(ADatabase, IsSeparateFromAnother) {
    const Manager one = openDatabase("Profile");
    const Manager other = openDatabase("Morning Brief");
    update(one.get(), kTwoUsers);
    EXPECT_THAT(walk(other.get(), "Profile", VRD_ERROR_NO_TABLE), IsEmpty());
}

TEST_F(ADatabase, ReturnsNoSuchTableWithoutALogLine) {
    const Manager manager = openDatabase("Morning Brief");
    EXPECT_THAT(logOf([&] { walk(manager.get(), "MorningBrief", VRD_ERROR_NO_TABLE); }), IsEmpty());
}

TEST_F(ADatabase, StopsTheIterationWhenTheCallbackReturnsFalse) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    int calls = 0;
    const auto second = [](const char*, int, const char*, void* data) { return ++*static_cast<int*>(data) < 2; };
    EXPECT_EQ(vrd_manager_foreach_table(manager.get(), "Profile", second, &calls), VRD_ERROR_NONE);
    EXPECT_EQ(calls, 2);
}

TEST_F(ADatabase, ReturnsEveryTextUnchanged) {
    const std::string texts[] = {"",
                                 "it's \"quoted\"; DROP TABLE Profile",
                                 "\xed\x95\x9c\xea\xb5\xad\xec\x96\xb4",
                                 "no utf-8: \xff\xfe",
                                 "\x01\n\t",
                                 std::string(2000000, 'x')};
    const Manager manager = openDatabase("Profile");
    for (const std::string& text : texts) {
        ASSERT_EQ(update(manager.get(), {{{text.substr(0, 50), text}}}), VRD_ERROR_NONE);
        EXPECT_THAT(walk(manager.get(), "Profile"), ElementsAre(text.substr(0, 50) + ":1=" + text));
    }
}

TEST_F(ADatabase, IsCreatedAgainAfterSomebodyRemovesItsFile) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    std::filesystem::remove_all(path());
    ASSERT_EQ(update(manager.get(), {{{"userId", "3"}}}), VRD_ERROR_NONE);
    EXPECT_THAT(walk(openDatabase("Profile").get(), "Profile"), ElementsAre("userId:1=3"));
}

// While the database is open, its write-ahead log is next to its file. The log does not belong to the new file.
TEST_F(ADatabase, IsOpenedAgainAfterSomebodyReplacesItsFile) {
    update(openDatabase("Other").get(), {});
    const Manager manager = openDatabase("Profile");
    update(manager.get(), kTwoUsers);
    EXPECT_EQ(std::filesystem::file_size(file("Profile") + "-wal"), 0U) << "an empty log cannot change the new file";
    {
        sqlite::Database other(file("Other"), sqlite::Access::WRITE, 0);
        other.execute("ALTER TABLE Other RENAME TO Profile; INSERT INTO Profile VALUES (0, 0, 'userId', 1, '3')");
    }
    std::filesystem::rename(file("Other"), file("Profile"));
    EXPECT_THAT(walk(manager.get(), "Profile"), ElementsAre("userId:1=3"));
    ASSERT_EQ(update(manager.get(), {{{"userId", "4"}}}), VRD_ERROR_NONE);
    EXPECT_THAT(walk(openDatabase("Profile").get(), "Profile"), ElementsAre("userId:1=4"));
}

TEST_F(ADatabase, IsInTheUsersDataDirectoryByDefault) {
    unsetenv("ORVANE_DB_DIR");
    setenv("XDG_DATA_HOME", path().c_str(), 1);
    const Manager manager = openDatabase("Profile");
    unsetenv("XDG_DATA_HOME");
    const std::string folder = path() + "/orvane-da/db";
    EXPECT_TRUE(std::filesystem::exists(folder + "/Profile.db"));
    struct stat status {};
    ASSERT_EQ(stat(folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U) << "other users may not read the names";
}

TEST_F(ADatabaseName, MayContainSpacesAndQuotes) {
    for (const char* name : {"Morning Brief", "it's \"a\" [name]", "100% ? #1", "\xed\x95\x9c"}) {
        const Manager manager = openDatabase(name);
        ASSERT_EQ(update(manager.get(), kTwoUsers), VRD_ERROR_NONE) << name;
        EXPECT_THAT(walk(manager.get(), name), SizeIs(4)) << name;
        EXPECT_TRUE(std::filesystem::exists(file(name))) << name;
    }
}

TEST_F(ADatabaseName, ThatIsNotAValidFileNameIsRefusedWithOneLogLine) {
    const std::string names[] = {"",    ".",       "..",   "../Profile",    "/tmp/Profile",
                                 "a/b", ".hidden", "a\nb", "sqlite_master", std::string(201, 'x')};
    for (const std::string& name : names) {
        const auto log = logOf([&] { openDatabase(name, VRD_ERROR_INVALID_PARAMETER); });
        EXPECT_THAT(log, ElementsAre(HasSubstr("not a valid database name: "))) << name;
    }
    EXPECT_TRUE(std::filesystem::is_empty(path()));
}

TEST_F(ARecord, ContainsEachKeyOnceWithItsLastText) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), {{{"userId", "1"}, {"userName", "Ann"}, {"userId", "2"}}});
    EXPECT_THAT(walk(manager.get(), "Profile"), ElementsAre("userId:1=2", "userName:1=Ann"));
}

TEST_F(ARecord, BelongsToTheCallerAfterAnUpdate) {
    const Manager manager = openDatabase("Profile");
    vrd_bundle_h record = nullptr;
    ASSERT_EQ(vrd_bundle_create(&record), VRD_ERROR_NONE);
    vrd_bundle_add_str(record, "userId", "1");
    GList node{record, nullptr, nullptr};
    EXPECT_EQ(vrd_manager_private_update(manager.get(), &node), VRD_ERROR_NONE);
    EXPECT_EQ(vrd_bundle_add_str(record, "userId", "2"), VRD_ERROR_NONE);
    EXPECT_EQ(vrd_manager_private_update(manager.get(), &node), VRD_ERROR_NONE);
    EXPECT_EQ(vrd_bundle_destroy(record), VRD_ERROR_NONE);
    EXPECT_THAT(walk(manager.get(), "Profile"), ElementsAre("userId:1=2"));
}

TEST_F(ADatabase, RefusesAMissingArgumentWithOneLogLine) {
    const Manager manager = openDatabase("Profile");
    vrd_bundle_h bundle = nullptr;
    vrd_bundle_create(&bundle);
    const std::unique_ptr<vrd_bundle_s, Destroy> record(bundle);
    vrd_manager_h made = nullptr;
    GList nothing{nullptr, nullptr, nullptr};
    const auto ignore = [](const char*, int, const char*, void*) { return true; };
    const std::function<int()> calls[] = {
        [&] { return vrd_manager_create(nullptr, "Profile"); },
        [&] { return vrd_manager_create(&made, nullptr); },
        [&] { return vrd_manager_destroy(nullptr); },
        [&] { return vrd_manager_foreach_table(nullptr, "Profile", ignore, nullptr); },
        [&] { return vrd_manager_foreach_table(manager.get(), nullptr, ignore, nullptr); },
        [&] { return vrd_manager_foreach_table(manager.get(), "Profile", nullptr, nullptr); },
        [&] { return vrd_manager_private_update(nullptr, nullptr); },
        [&] { return vrd_manager_private_update(manager.get(), &nothing); },
        [&] { return vrd_bundle_create(nullptr); },
        [&] { return vrd_bundle_destroy(nullptr); },
        [&] { return vrd_bundle_add_str(nullptr, "userId", "1"); },
        [&] { return vrd_bundle_add_str(record.get(), nullptr, "1"); },
        [&] { return vrd_bundle_add_str(record.get(), "userId", nullptr); },
    };
    for (const auto& call : calls) {
        const auto log = logOf([&] { EXPECT_EQ(call(), VRD_ERROR_INVALID_PARAMETER); });
        EXPECT_THAT(log, ElementsAre(HasSubstr(": an argument is missing")));
    }
}

}  // namespace

}  // namespace localdb_test
