// SPDX-License-Identifier: Apache-2.0
// Full disks and read-only media.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>

#include "SmallFileSystem.h"

namespace localdb_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class AFullDisk : public SmallFileSystem {};
class AReadOnlyMedium : public SmallFileSystem {};
class AFileSizeLimit : public DatabaseFolder {};

void expectToWork(const Manager& manager) {
    EXPECT_EQ(update(manager.get(), users("works", 2)), VRD_ERROR_NONE);
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "works");
}

void checkKeepsTheOldList() {
    const Manager manager = openDatabase("Profile");
    ASSERT_EQ(update(manager.get(), users("old", 20)), VRD_ERROR_NONE);
    const auto log = logOf([&] { EXPECT_EQ(update(manager.get(), users("new", 20000)), VRD_ERROR_IO_ERROR); });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot update the database Profile: ")));
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    expectToWork(manager);
}

TEST_F(AFullDisk, KeepsTheOldListAndTheNextUpdateThatFitsSucceeds) {
    EXPECT_EQ(inside([this] {
                  checkKeepsTheOldList();
                  EXPECT_TRUE(std::filesystem::exists(file("Profile")));
              }),
              0);
}

void checkOpensLater(const std::string& rubbish) {
    std::ofstream(rubbish) << std::string(2 << 20, 'x');
    Manager manager;
    const auto log = logOf([&] {
        manager = openDatabase("Profile");
        EXPECT_EQ(update(manager.get(), users("new", 2)), VRD_ERROR_IO_ERROR);
    });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: "),
                                 HasSubstr("cannot update the database Profile: ")));
    std::filesystem::remove(rubbish);
    expectToWork(manager);
}

TEST_F(AFullDisk, FailsTheOpeningWithALogLineUntilThereIsSpace) {
    EXPECT_EQ(inside([this] { checkOpensLater(path() + "/rubbish"); }), 0);
}

TEST_F(AFileSizeLimit, OfTheProcessKeepsTheOldList) {
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

void checkReadOnly() {
    const Manager manager = openDatabase("Profile");
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
    const auto log = logOf([&] { EXPECT_EQ(update(manager.get(), users("new", 2)), VRD_ERROR_IO_ERROR); });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot update the database Profile: attempt to write a readonly")));
    EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
}

TEST_F(AReadOnlyMedium, CanBeReadAndRefusesAnUpdateWithOneLogLine) {
    EXPECT_EQ(inside([this] {
                  update(openDatabase("Profile").get(), users("old", 5));
                  remountReadOnly();
                  checkReadOnly();
              }),
              0);
}

// Another process writes as soon as it can. The handle that could only read sees the change and can write too.
TEST_F(AReadOnlyMedium, CanBeWrittenOnceItIsWritableAgain) {
    EXPECT_EQ(inside([this] {
                  update(openDatabase("Profile").get(), users("old", 5));
                  remountReadOnly();
                  const Manager manager = openDatabase("Profile");
                  EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
                  remountWritable();
                  EXPECT_EQ(update(openDatabase("Profile").get(), users("new", 300)), VRD_ERROR_NONE);
                  EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "new");
                  expectToWork(manager);
              }),
              0);
}

TEST_F(AReadOnlyMedium, IsReadAgainAfterSomebodyWroteToIt) {
    EXPECT_EQ(inside([this] {
                  update(openDatabase("Profile").get(), users("old", 5));
                  remountReadOnly();
                  const Manager manager = openDatabase("Profile");
                  EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "old");
                  remountWritable();
                  update(openDatabase("Profile").get(), users("new", 300));
                  remountReadOnly();
                  EXPECT_EQ(markOf(walk(manager.get(), "Profile")), "new");
              }),
              0);
}

void updateAndDie() {
    const Manager manager = openDatabase("Profile");
    update(manager.get(), users("old", 5));
    raise(SIGKILL);
}

TEST_F(AReadOnlyMedium, ContainsWhatAWriterStoredBeforeItDied) {
    EXPECT_EQ(inside([this] {
                  EXPECT_EQ(await(inChild(updateAndDie)), 128 + SIGKILL);
                  ASSERT_TRUE(std::filesystem::exists(file("Profile") + "-wal"));
                  remountReadOnly();
                  checkReadOnly();
              }),
              0);
}

}  // namespace

}  // namespace localdb_test
