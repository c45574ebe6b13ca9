// SPDX-License-Identifier: Apache-2.0
#include "speech/ModelManifest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

using speech::ModelManifest;
using testing::HasSubstr;

// A directory of models, which the installation has recorded.
class AManifest : public testing::Test {
protected:
    AManifest() : mRoot(mkdtemp(mName)) {
        fs::create_directories(mRoot + "/models/en us");
        write("en us/means", std::string(100000, 'm'));
        write("en us/empty", "");
        write("words", "hey HH EY\n");
        record();
    }
    ~AManifest() override { fs::remove_all(mRoot); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    void record() const {
        ASSERT_EQ(system((RECORD_MODELS " " + mRoot + "/models > " + mRoot + "/manifest").c_str()), 0);
    }
    std::string path(const std::string& name) const { return mRoot + "/models/" + name; }
    // What verify() says; empty: nothing is wrong.
    static std::string fault(ModelManifest& manifest, const std::string& path) {
        try {
            manifest.verify(path);
            return "";
        } catch (const std::runtime_error& fault) {
            return fault.what();
        }
    }
    std::string fault(const std::string& name) {
        ModelManifest manifest(mRoot + "/manifest", mRoot + "/models");
        return fault(manifest, path(name));
    }

    char mName[32] = "/tmp/orvane-manifest-XXXXXX";
    const std::string mRoot;
};

TEST_F(AManifest, AcceptsTheModelsThatWereInstalled) {
    for (const char* name : {"", "en us", "en us/", "en us/means", "en us/empty", "words", "../models/words"}) {
        EXPECT_EQ(fault(name), "") << name;
    }
}

TEST_F(AManifest, NamesAFileWithAWrongByte) {
    write("en us/means", std::string(50000, 'm') + "n" + std::string(49999, 'm'));
    EXPECT_EQ(fault("en us"), "damaged model: " + path("en us/means") + " has changed since its installation");
    EXPECT_EQ(fault("words"), "");
}

TEST_F(AManifest, NamesAFileWithTheWrongSize) {
    write("en us/means", "m");
    EXPECT_EQ(fault("en us/means"), "damaged model: " + path("en us/means") + " has 1 bytes instead of 100000");
}

TEST_F(AManifest, NamesAMissingFile) {
    fs::remove(path("en us/empty"));
    EXPECT_EQ(fault("en us"), "missing model: " + path("en us/empty"));
}

TEST_F(AManifest, AcceptsAFileThatItDoesNotContain) {
    write("own words", "hey HH EY\n");
    EXPECT_EQ(fault("own words"), "");
    EXPECT_EQ(fault("/nowhere"), "");
}

TEST_F(AManifest, ThatIsMissingAcceptsEveryFile) {
    ModelManifest manifest(mRoot + "/nothing", mRoot + "/models");
    EXPECT_EQ(fault(manifest, path("words")), "");
}

TEST_F(AManifest, IgnoresALineInAnotherFormat) {
    std::ofstream(mRoot + "/manifest", std::ios::app) << "\nchecksum\n# words\n12 many words\n";
    EXPECT_EQ(fault("words"), "");
}

TEST_F(AManifest, FindsDamageThatHappensAfterTheFirstLoad) {
    ModelManifest manifest(mRoot + "/manifest", mRoot + "/models");
    EXPECT_EQ(fault(manifest, path("words")), "");
    const auto time = fs::last_write_time(path("words"));
    write("words", "hey HH AY\n");
    fs::last_write_time(path("words"), time);
    EXPECT_THAT(fault(manifest, path("words")), HasSubstr("has changed"));
    write("words", "hey HH EY\n");
    EXPECT_EQ(fault(manifest, path("words")), "") << "the model is repaired";
}

TEST_F(AManifest, IsUsedBySeveralThreads) {
    ModelManifest manifest(mRoot + "/manifest", mRoot + "/models");
    std::vector<std::string> faults(4);
    std::vector<std::thread> threads;
    for (std::string& found : faults) {
        threads.emplace_back([&] { found = fault(manifest, path("")); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(faults, testing::Each(""));
}

}  // namespace
