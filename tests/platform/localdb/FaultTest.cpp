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
#include "lib/sqlite/Database.h"

namespace localdb_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ABrokenFile : public DatabaseFolder {};
class AFullDisk : public DatabaseFolder {};
class AReadOnlyMedium : public DatabaseFolder {};

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void put(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

TEST_F(ABrokenFile, IsToldInOneLineAndLeftAsItIs) {
    const std::string content(5000, 'x');
    put(file("Profile"), content);
    const auto log = logOf([] { openDatabase("Profile", VRD_ERROR_IO_ERROR); });
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot open the database Profile: file is not a database")));
    EXPECT_EQ(contentOf(file("Profile")), content);
}

TEST_F(ABrokenFile, ThatIsAFolderIsToldInOneLine) {
    std::filesystem::create_directory(file("Profile"));
    EXPECT_THAT(logOf([] { openDatabase("Profile", VRD_ERROR_IO_ERROR); }),
                ElementsAre(HasSubstr("cannot open the database Profile")));
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
        vrd_manager_h manager = nullptr;
        const auto ignore = [](const char*, int, const char*, void*) { return true; };
        testing::internal::CaptureStderr();
        if (vrd_manager_create(&manager, "Profile") == VRD_ERROR_NONE) {
            const Manager owned(manager);
            vrd_manager_foreach_table(manager, "Profile", ignore, nullptr);
            update(manager, users("new", 3));
        }
        testing::internal::GetCapturedStderr();
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

TEST_F(AFullDisk, IsToldWhenTheDatabaseIsOpened) {
    EXPECT_EQ(inSmallFileSystem(1 << 20,
                                [this] {
                                    put(path() + "/rubbish", std::string(2 << 20, 'x'));
                                    EXPECT_THAT(logOf([] { openDatabase("Profile", VRD_ERROR_IO_ERROR); }),
                                                ElementsAre(HasSubstr("cannot open the database Profile: ")));
                                }),
              0);
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

void remountReadOnly(const std::string& folder) {
    ASSERT_EQ(mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
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
