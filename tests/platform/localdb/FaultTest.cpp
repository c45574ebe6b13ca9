// SPDX-License-Identifier: Apache-2.0
// Damaged and locked files, and directories that cannot be created.
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "Support.h"
#include "sqlite/Database.h"

namespace localdb_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ADamagedFile : public DatabaseFolder {};
class ALockedDatabase : public DatabaseFolder {};
class AMissingDirectory : public DatabaseFolder {};

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void put(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

void expectToWork(const Manager& manager) {
    EXPECT_EQ(update(manager.get(), users("works", 2)), VRD_ERROR_NONE);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "works");
}

TEST_F(ADamagedFile, FailsEachOperationWithOneLogLineAndStaysAsItIs) {
    const std::string content(5000, 'x');
    put(file("Profile"), content);
    Manager manager;
    const auto log = logOf([&] {
        manager = openDatabase("Profile");
        walk(manager.get(), "Profile", VRD_ERROR_IO_ERROR);
        EXPECT_EQ(update(manager.get(), users("new", 2)), VRD_ERROR_IO_ERROR);
    });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: file is not a database"),
                                 HasSubstr("cannot read the database Profile: file is not a database"),
                                 HasSubstr("cannot update the database Profile: file is not a database")));
    EXPECT_EQ(contentOf(file("Profile")), content);
}

TEST_F(ADamagedFile, ThatIsADirectoryFailsWithOneLogLineUntilItIsRemoved) {
    std::filesystem::create_directory(file("Profile"));
    Manager manager;
    EXPECT_THAT(logOf([&] { manager = openDatabase("Profile"); }),
                ElementsAre(HasSubstr("cannot open the database Profile: ")));
    std::filesystem::remove(file("Profile"));
    expectToWork(manager);
}

TEST_F(AMissingDirectory, FailsEachOperationWithOneLogLineUntilItCanBeCreated) {
    const std::string folder = path() + "/not/yet";
    put(path() + "/not", "in its way");
    setenv("ORVANE_DB_DIR", folder.c_str(), 1);
    Manager manager;
    const auto log = logOf([&] {
        manager = openDatabase("Profile");
        walk(manager.get(), "Profile", VRD_ERROR_IO_ERROR);
    });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: cannot create " + folder),
                                 HasSubstr("cannot read the database Profile: cannot create " + folder)));
    std::filesystem::remove(path() + "/not");
    expectToWork(manager);
    EXPECT_TRUE(std::filesystem::exists(folder + "/Profile.db"));
}

TEST_F(ALockedDatabase, FailsTheOpeningWithOneLogLineAndWorksOnceItIsUnlocked) {
    update(openDatabase("Profile").get(), users("old", 2));
    auto holder = std::make_unique<sqlite::Database>(file("Profile"), sqlite::Access::WRITE, 0);
    holder->execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN IMMEDIATE; CREATE TABLE Other (name TEXT)");
    Manager manager;
    EXPECT_THAT(logOf([&] { manager = openDatabase("Profile"); }),
                ElementsAre(HasSubstr("cannot open the database Profile: database is locked")));
    holder.reset();
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    expectToWork(manager);
}

TEST_F(ADamagedFile, WithOtherColumnsFailsWithOneLogLine) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), users("old", 2));
    EXPECT_THAT(logOf([&] { walk(manager.get(), "sqlite_master", VRD_ERROR_NO_TABLE); }), ElementsAre());
    const Manager other = openDatabase("Other");
    sqlite::Database(file("Other"), sqlite::Access::WRITE, 5000).execute("CREATE TABLE Other (name TEXT)");
    EXPECT_THAT(logOf([&] { walk(other.get(), "Other", VRD_ERROR_IO_ERROR); }),
                ElementsAre(HasSubstr("cannot read the database Other: no such column")));
    EXPECT_THAT(logOf([&] { EXPECT_EQ(update(other.get(), users("new", 1)), VRD_ERROR_IO_ERROR); }),
                ElementsAre(HasSubstr("cannot update the database Other")));
}

TEST_F(ADamagedFile, NeverEndsTheProcess) {
    update(openDatabase("Profile").get(), users("old", 200));
    const std::string whole = contentOf(file("Profile"));
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string damaged = whole.substr(0, round % 4 == 0 ? random() % whole.size() : whole.size());
        for (int i = 0; i < 20 && !damaged.empty(); ++i) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        std::filesystem::remove(file("Profile") + "-wal");
        std::filesystem::remove(file("Profile") + "-shm");
        put(file("Profile"), damaged);
        const auto ignore = [](const char*, int, const char*, void*) { return true; };
        logOf([&] {
            const Manager manager = openDatabase("Profile");
            vrd_manager_foreach_table(manager.get(), "Profile", ignore, nullptr);
            update(manager.get(), users("new", 3));
        });
    }
}

}  // namespace

}  // namespace localdb_test
