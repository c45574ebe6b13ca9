// SPDX-License-Identifier: Apache-2.0
#include "Util/FileHelper.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <new>
#include <optional>
#include <sstream>

#include "unit/Fixture.h"

using Util::FileContent;
using Util::FileHelper;

// Replaced system calls: failures that no file can cause, and a call whose effect no file shows.
namespace {

std::optional<long> position;  // that ftell returns
int goodSeeks = -1;            // before one that fails
bool lackOfMemory = false;
std::function<void()> onSync;
std::vector<int> accessModes;  // that were checked

}  // namespace

extern "C" {

long ftell(FILE* file) {
    static const auto real = reinterpret_cast<long (*)(FILE*)>(dlsym(RTLD_NEXT, "ftell"));
    return position ? *position : real(file);
}

int fseek(FILE* file, long offset, int origin) {
    static const auto real = reinterpret_cast<int (*)(FILE*, long, int)>(dlsym(RTLD_NEXT, "fseek"));
    return goodSeeks >= 0 && goodSeeks-- == 0 ? -1 : real(file, offset, origin);
}

void sync() noexcept {
    if (onSync) {
        onSync();
    }
}

int access(const char* path, int mode) noexcept {
    static const auto real = reinterpret_cast<int (*)(const char*, int)>(dlsym(RTLD_NEXT, "access"));
    accessModes.push_back(mode);
    return real(path, mode);
}

}  // extern "C"

void* operator new[](size_t size, const std::nothrow_t&) noexcept {
    return lackOfMemory ? nullptr : ::operator new[](size);
}

class FileHelperTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        position.reset();
        goodSeeks = -1;
        lackOfMemory = false;
        onSync = nullptr;
        char name[] = "/tmp/orvane-file-XXXXXX";
        folder = mkdtemp(name);
        path = folder + "/file";
    }
    void TearDown() override {
        std::filesystem::remove_all(folder);
        PlatformTest::TearDown();
    }
    std::string bytes() const {
        std::ifstream file(path, std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    bool exists() const { return access(path.c_str(), F_OK) == 0; }

    std::string folder;
    std::string path;
};

TEST_F(FileHelperTest, WritingWithoutDataFailsAndCreatesNoFile) {
    FileContent content(path.c_str());
    EXPECT_FALSE(FileHelper::write(content));
    EXPECT_FALSE(exists());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Data is not set"));
}

TEST_F(FileHelperTest, WritingReplacesTheFile) {
    std::ofstream(path) << "longer than before";
    FileContent content(path.c_str());
    EXPECT_TRUE(FileHelper::write(content.setCopiedData("abc", 3)));
    EXPECT_EQ(bytes(), "abc");
}

TEST_F(FileHelperTest, ATerminatedFileIsOneByteLongerAndEndsWithZero) {
    FileContent content(path.c_str());
    content.setCopiedData("abc", 3);
    content.nullTerminate = true;
    EXPECT_TRUE(FileHelper::write(content));
    EXPECT_EQ(bytes(), std::string("abc\0", 4));
}

TEST_F(FileHelperTest, WritingToAnImpossiblePathFails) {
    FileContent content((folder + "/no/file").c_str());
    content.setCopiedData("abc", 3);
    EXPECT_FALSE(FileHelper::write(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "file open error"));
}

TEST_F(FileHelperTest, ReadingReturnsTheWholeFile) {
    std::ofstream(path) << "hello";
    FileContent content(path.c_str());
    EXPECT_TRUE(FileHelper::read(content));
    EXPECT_EQ(std::string(content.data.get(), content.size), "hello");
}

TEST_F(FileHelperTest, ReadingAMissingFileFails) {
    FileContent content(path.c_str());
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "File open fail, path = " + path));
}

TEST_F(FileHelperTest, ReadingAnEmptyFileSucceedsAndLeavesTheContentAsItWas) {
    std::ofstream file(path);
    file.close();
    FileContent content(path.c_str());
    content.setCopiedData("old", 3);
    EXPECT_TRUE(FileHelper::read(content));
    EXPECT_EQ(std::string(content.data.get(), content.size), "old");
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Data set fail , filepath : " + path));
}

TEST_F(FileHelperTest, ReadingFailsIfTheEndCannotBeFound) {
    std::ofstream(path) << "hello";
    FileContent content(path.c_str());
    goodSeeks = 0;
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "fseek fail"));
}

TEST_F(FileHelperTest, ReadingFailsIfTheFileCannotBeRewound) {
    std::ofstream(path) << "hello";
    FileContent content(path.c_str());
    goodSeeks = 1;
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "fseek fail"));
    EXPECT_EQ(content.data, nullptr);
}

TEST_F(FileHelperTest, ReadingFailsIfTheSizeIsUnknown) {
    std::ofstream(path) << "hello";
    FileContent content(path.c_str());
    position = -1;
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Invalid size"));
}

TEST_F(FileHelperTest, ReadingAFileOfMoreThanTwoGigabytesFails) {
    std::ofstream file(path);
    file.close();
    std::filesystem::resize_file(path, 1ull << 31);
    FileContent content(path.c_str());
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Invalid size"));
}

TEST_F(FileHelperTest, ReadingFailsIfTheFileEndsEarly) {
    std::ofstream(path) << "hello";
    FileContent content(path.c_str());
    content.setCopiedData("old", 3);
    position = 6;
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "file read fail , path = " + path));
    EXPECT_EQ(std::string(content.data.get(), content.size), "old");
}

TEST_F(FileHelperTest, AFileIsCompleteBeforeItIsSynced) {
    FileContent content(path.c_str());
    content.setCopiedData("abc", 3);
    std::string synced;
    onSync = [&] { synced = bytes(); };
    EXPECT_TRUE(FileHelper::write(content));
    EXPECT_EQ(synced, "abc");
}

TEST_F(FileHelperTest, WritingAfterRefusedDataWritesTheOldContent) {
    FileContent content(path.c_str());
    content.setCopiedData("abc", 3).setCopiedData(nullptr, 4);
    EXPECT_TRUE(FileHelper::write(content));
    EXPECT_EQ(bytes(), "abc");
}

TEST_F(FileHelperTest, ALackOfMemoryIsRefusedWithoutAnException) {
    FileContent content(path.c_str());
    content.setCopiedData("abc", 3);
    lackOfMemory = true;
    EXPECT_NO_THROW(content.setCopiedData("xyzw", 4));
    lackOfMemory = false;
    EXPECT_EQ(std::string(content.data.get(), content.size), "abc");
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Data set fail , filepath : " + path));
}

TEST_F(FileHelperTest, RefusedDataLeavesTheContentAsItWas) {
    FileContent content(path.c_str());
    content.setCopiedData("abc", 3);
    content.setCopiedData("xyz", -1).setCopiedData(nullptr, 4).setCopiedData("xyz", 0);
    EXPECT_EQ(std::string(content.data.get(), content.size), "abc");
    EXPECT_EQ(fake::platform().countLogged("Data set fail , filepath : " + path), 3u);
}

TEST_F(FileHelperTest, SettingDataTwiceKeepsTheSecondCopyOnly) {
    FileContent content(path.c_str());
    content.setCopiedData("first", 5).setCopiedData("2", 1);
    EXPECT_EQ(content.size, 1);
    EXPECT_EQ(content.data[0], '2');
}

TEST_F(FileHelperTest, RemovingAFileTwiceFailsTheSecondTime) {
    std::ofstream(path) << "x";
    FileContent content(path.c_str());
    EXPECT_TRUE(FileHelper::remove(content));
    EXPECT_FALSE(exists());
    EXPECT_FALSE(FileHelper::remove(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "failed to delete file : " + path));
}

TEST_F(FileHelperTest, EachProbeChecksItsOwnPermission) {
    std::ofstream(path) << "x";
    FileContent content(path.c_str());
    accessModes.clear();
    EXPECT_TRUE(FileHelper::isExist(content));
    EXPECT_TRUE(FileHelper::isReadable(content));
    EXPECT_TRUE(FileHelper::isWritable(content));
    EXPECT_EQ(accessModes, (std::vector<int>{F_OK, R_OK, W_OK}));
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(FileHelperTest, EachProbeOfAMissingFileLogsOneDebugLine) {
    FileContent content(path.c_str());
    EXPECT_FALSE(FileHelper::isExist(content));
    EXPECT_FALSE(FileHelper::isReadable(content));
    EXPECT_FALSE(FileHelper::isWritable(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "File not exist"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Can't Readable"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Can't Writable"));
}

TEST_F(FileHelperTest, ANewFileHasThePermissionsThatTheUmaskAllows) {
    for (const mode_t mask : {022, 077}) {
        unlink(path.c_str());
        const mode_t usual = umask(mask);
        FileContent content(path.c_str());
        EXPECT_TRUE(FileHelper::write(content.setCopiedData("abc", 3)));
        umask(usual);
        struct stat status {};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0666u & ~mask);
    }
}

// What another user can put in place of a file.
class FileOfAnotherTest : public FileHelperTest {
protected:
    // Tries to write and to read. Both must end, fail, and log one line each.
    void expectRefusal(const std::string& fault) {
        FileContent content(path.c_str());
        content.setCopiedData("abc", 3);
        auto both = std::async(std::launch::async,
                               [&] { return std::pair(FileHelper::write(content), FileHelper::read(content)); });
        const bool ended = both.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
        EXPECT_TRUE(ended) << "blocks";
        if (!ended) {
            both.wait_for(std::chrono::seconds(open(path.c_str(), O_RDWR | O_NONBLOCK) < 0));
        }
        EXPECT_EQ(both.get(), std::pair(false, false));
        EXPECT_EQ(fake::platform().logs().size(), 2u);
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "file open error : " + path + " is " + fault));
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "File open fail, path = " + path + ", which is " + fault));
    }
};

TEST_F(FileOfAnotherTest, APipeIsRefused) {
    ASSERT_EQ(mkfifo(path.c_str(), 0666), 0);
    expectRefusal("not a regular file");
}

TEST_F(FileOfAnotherTest, APipeThatHasAReaderIsRefusedAndReceivesNothing) {
    ASSERT_EQ(mkfifo(path.c_str(), 0666), 0);
    const int reader = open(path.c_str(), O_RDWR | O_NONBLOCK);
    expectRefusal("not a regular file");
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), -1);
    close(reader);
}

TEST_F(FileOfAnotherTest, ADirectoryIsRefused) {
    ASSERT_EQ(mkdir(path.c_str(), 0777), 0);
    expectRefusal("not a regular file");
}

TEST_F(FileOfAnotherTest, ALinkIsRefusedAndItsTargetStaysAsItIs) {
    const std::string target = folder + "/target";
    std::ofstream(target) << "mine";
    ASSERT_EQ(symlink(target.c_str(), path.c_str()), 0);
    expectRefusal("a symbolic link");
    EXPECT_EQ(bytes(), "mine");
}

TEST_F(FileOfAnotherTest, ALinkToNothingIsRefusedAndCreatesNothing) {
    ASSERT_EQ(symlink((folder + "/target").c_str(), path.c_str()), 0);
    expectRefusal("a symbolic link");
    EXPECT_FALSE(exists());
}

TEST_F(FileOfAnotherTest, AnotherUsersFileIsRefusedAndStaysAsItIs) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root to create another user's file";
    }
    std::ofstream(path) << "theirs";
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
    // With and without the kernel's own protection of directories such as /tmp.
    for (const mode_t mode : {0755, 01777}) {
        fake::platform().reset();
        ASSERT_EQ(chmod(folder.c_str(), mode), 0);
        expectRefusal("another user's file");
    }
    EXPECT_EQ(bytes(), "theirs");
}
