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

TEST_F(FileHelperTest, ReadingAPipeFails) {
    mkfifo(path.c_str(), 0600);
    const int keeper = open(path.c_str(), O_RDWR);
    FileContent content(path.c_str());
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "fseek fail"));
    close(keeper);
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

TEST_F(FileHelperTest, ReadingADirectoryFails) {
    FileContent content(folder.c_str());
    EXPECT_FALSE(FileHelper::read(content));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Invalid size"));
    EXPECT_EQ(content.data, nullptr);
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
