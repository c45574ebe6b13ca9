// SPDX-License-Identifier: Apache-2.0
// When PocketSphinx is loaded, and which threads that starts.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "sphinx/Decoder.h"
#include "sphinx/Models.h"

namespace {

bool isLoaded(const std::string& library) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(library) != std::string::npos) {
            return true;
        }
    }
    return false;
}

long threads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

void load() {
    const std::string model = sphinx::modelPath("en-us/en-us");
    const sphinx::Decoder decoder({{"hmm", model}, {"dict", "/dev/null"}});
}

TEST(PocketSphinx, IsLoadedByTheFirstDecoder) {
    EXPECT_FALSE(isLoaded("libpocketsphinx"));
    EXPECT_FALSE(isLoaded("libblas"));
    load();
    EXPECT_TRUE(isLoaded("libpocketsphinx"));
}

TEST(PocketSphinx, StartsNoThreadWithOpenBlas) {
    const long before = threads();
    load();
    if (!isLoaded("openblas")) {
        GTEST_SKIP() << "needs OpenBLAS with threads (the package libopenblas0-pthread) as the machine's BLAS";
    }
    EXPECT_EQ(threads(), before);
}

}  // namespace
