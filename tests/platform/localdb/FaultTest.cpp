// SPDX-License-Identifier: Apache-2.0
// Broken files, full disks, media that cannot be written.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

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

class ABrokenFile : public DatabaseFolder {};
class AFullDisk : public DatabaseFolder {};
class ALockedDatabase : public DatabaseFolder {};
class AMissingFolder : public DatabaseFolder {};
class AReadOnlyMedium : public DatabaseFolder {};

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

TEST_F(ABrokenFile, IsToldInOneLineAndLeftAsItIs) {
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

TEST_F(ABrokenFile, ThatIsAFolderIsToldInOneLineAndUsedOnceItIsNone) {
    std::filesystem::create_directory(file("Profile"));
    Manager manager;
    EXPECT_THAT(logOf([&] { manager = openDatabase("Profile"); }),
                ElementsAre(HasSubstr("cannot open the database Profile: ")));
    std::filesystem::remove(file("Profile"));
    expectToWork(manager);
}

TEST_F(AMissingFolder, IsToldWithEachUseAndUsedOnceItIsThere) {
    const std::string folder = path() + "/not/yet";
    put(path() + "/not", "in its way");
    setenv("ORVANE_DB_DIR", folder.c_str(), 1);
    Manager manager;
    const auto log = logOf([&] {
        manager = openDatabase("Profile");
        walk(manager.get(), "Profile", VRD_ERROR_IO_ERROR);
    });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: cannot make " + folder),
                                 HasSubstr("cannot read the database Profile: cannot make " + folder)));
    std::filesystem::remove(path() + "/not");
    expectToWork(manager);
    EXPECT_TRUE(std::filesystem::exists(folder + "/Profile.db"));
}

TEST_F(ALockedDatabase, IsToldWhenItIsOpenedAndWorksOnceItIsFree) {
    update(openDatabase("Profile").get(), users("old", 2));
    auto holder = std::make_unique<sqlite::Database>(file("Profile"), SQLITE_OPEN_READWRITE, 0);
    holder->execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN IMMEDIATE; CREATE TABLE Other (name TEXT)");
    Manager manager;
    EXPECT_THAT(logOf([&] { manager = openDatabase("Profile"); }),
                ElementsAre(HasSubstr("cannot open the database Profile: database is locked")));
    holder.reset();
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    expectToWork(manager);
}

TEST_F(ABrokenFile, WithATableOfAnotherShapeIsToldInOneLine) {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), users("old", 2));
    EXPECT_THAT(logOf([&] { walk(manager.get(), "sqlite_master", VRD_ERROR_NO_TABLE); }), ElementsAre());
    const Manager other = openDatabase("Other");
    sqlite::Database(file("Other"), SQLITE_OPEN_READWRITE, 5000).execute("CREATE TABLE Other (name TEXT)");
    EXPECT_THAT(logOf([&] { walk(other.get(), "Other", VRD_ERROR_IO_ERROR); }),
                ElementsAre(HasSubstr("cannot read the database Other: no such column")));
    EXPECT_THAT(logOf([&] { EXPECT_EQ(update(other.get(), users("new", 1)), VRD_ERROR_IO_ERROR); }),
                ElementsAre(HasSubstr("cannot update the database Other")));
}

TEST_F(ABrokenFile, NeverBringsTheProcessDown) {
    update(openDatabase("Profile").get(), users("old", 200));
    const std::string whole = contentOf(file("Profile"));
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string broken = whole.substr(0, round % 4 == 0 ? random() % whole.size() : whole.size());
        for (int i = 0; i < 20 && !broken.empty(); ++i) {
            broken[random() % broken.size()] = static_cast<char>(random());
        }
        std::filesystem::remove(file("Profile") + "-wal");
        std::filesystem::remove(file("Profile") + "-shm");
        put(file("Profile"), broken);
        const auto ignore = [](const char*, int, const char*, void*) { return true; };
        logOf([&] {
            const Manager manager = openDatabase("Profile");
            vrd_manager_foreach_table(manager.get(), "Profile", ignore, nullptr);
            update(manager.get(), users("new", 3));
        });
    }
}

// The bytes that others fill are given back, and the next update goes through.
void fillTheDisk(const std::string& folder) {
    const Manager manager = openDatabase("Profile");
    ASSERT_EQ(update(manager.get(), users("old", 20)), VRD_ERROR_NONE);
    const auto log = logOf([&] { EXPECT_EQ(update(manager.get(), users("new", 20000)), VRD_ERROR_IO_ERROR); });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot update the database Profile: ")));
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    EXPECT_EQ(update(manager.get(), users("newer", 20)), VRD_ERROR_NONE);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "newer");
    EXPECT_TRUE(std::filesystem::exists(folder + "/Profile.db"));
}

TEST_F(AFullDisk, KeepsTheOldListAndTakesTheNextThatFits) {
    EXPECT_EQ(inSmallFileSystem(1 << 20, [this] { fillTheDisk(path()); }), 0);
}

void openOnAFullDisk(const std::string& folder) {
    put(folder + "/rubbish", std::string(2 << 20, 'x'));
    Manager manager;
    const auto log = logOf([&] {
        manager = openDatabase("Profile");
        EXPECT_EQ(update(manager.get(), users("new", 2)), VRD_ERROR_IO_ERROR);
    });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: "),
                                 HasSubstr("cannot update the database Profile: ")));
    std::filesystem::remove(folder + "/rubbish");
    expectToWork(manager);
}

TEST_F(AFullDisk, IsToldWhenTheDatabaseIsOpenedAndWorksOnceThereIsRoom) {
    EXPECT_EQ(inSmallFileSystem(1 << 20, [this] { openOnAFullDisk(path()); }), 0);
}

TEST_F(AFullDisk, MayBeALimitOfTheProcess) {
    const pid_t child = inChild([] {
        signal(SIGXFSZ, SIG_IGN);
        const Manager manager = openDatabase("Profile");
        ASSERT_EQ(update(manager.get(), users("old", 20)), VRD_ERROR_NONE);
        const rlimit limit{300000, 300000};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_EQ(update(manager.get(), users("new", 20000)), VRD_ERROR_IO_ERROR);
        EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    });
    EXPECT_EQ(await(child), 0);
    EXPECT_EQ(markOf(walk(openDatabase("Profile").get(), "Profile")), "old");
}

void remount(const std::string& folder, unsigned long flags) {
    ASSERT_EQ(mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | flags, nullptr), 0);
}

void remountReadOnly(const std::string& folder) {
    remount(folder, MS_RDONLY);
}

void checkReadOnly() {
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    const auto log = logOf([&] { EXPECT_EQ(update(manager.get(), users("new", 2)), VRD_ERROR_IO_ERROR); });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot update the database Profile: attempt to write a readonly")));
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
}

TEST_F(AReadOnlyMedium, IsReadAndRefusesAnUpdateInOneLine) {
    EXPECT_EQ(inSmallFileSystem(1 << 20,
                                [this] {
                                    update(openDatabase("Profile").get(), users("old", 5));
                                    remountReadOnly(path());
                                    checkReadOnly();
                                }),
              0);
}

// Another process writes as soon as it can, and the handle that could only read shows it and writes too.
void checkWritableAgain(const std::string& folder) {
    update(openDatabase("Profile").get(), users("old", 5));
    remountReadOnly(folder);
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    remount(folder, 0);
    EXPECT_EQ(update(openDatabase("Profile").get(), users("new", 300)), VRD_ERROR_NONE);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "new");
    expectToWork(manager);
}

TEST_F(AReadOnlyMedium, ThatCanBeWrittenAgainIsWritten) {
    EXPECT_EQ(inSmallFileSystem(1 << 20, [this] { checkWritableAgain(path()); }), 0);
}

void checkWrittenMeanwhile(const std::string& folder) {
    update(openDatabase("Profile").get(), users("old", 5));
    remountReadOnly(folder);
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    remount(folder, 0);
    update(openDatabase("Profile").get(), users("new", 300));
    remountReadOnly(folder);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "new");
}

TEST_F(AReadOnlyMedium, ThatWasWrittenMeanwhileIsReadAnew) {
    EXPECT_EQ(inSmallFileSystem(1 << 20, [this] { checkWrittenMeanwhile(path()); }), 0);
}

TEST_F(AReadOnlyMedium, ShowsWhatAWriterThatDiedHadStored) {
    EXPECT_EQ(inSmallFileSystem(1 << 20,
                                [this] {
                                    await(inChild([] {
                                        const Manager manager = openDatabase("Profile");
                                        update(manager.get(), users("old", 5));
                                        raise(SIGKILL);
                                    }));
                                    ASSERT_TRUE(std::filesystem::exists(file("Profile") + "-wal"));
                                    remountReadOnly(path());
                                    checkReadOnly();
                                }),
              0);
}

}  // namespace

}  // namespace localdb_test
