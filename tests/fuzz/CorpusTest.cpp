// SPDX-License-Identifier: Apache-2.0
// Replays the inputs of the fuzzers with the ordinary compiler: inputs that once crashed (fuzz/regressions), and inputs
// that reach deep into the code (fuzz/corpus). An entry aborts when a check fails.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Entries.h"

namespace fs = std::filesystem;

namespace {

struct Input {
    const char* name;  // of its directory
    void (*entry)(std::string_view bytes);
};

void PrintTo(const Input& input, std::ostream* out) {
    *out << input.name;
}

const Input kInputs[] = {
    {"busArguments", fuzz::busArguments}, {"commands", fuzz::commands},   {"hubAnswer", fuzz::hubAnswer},
    {"message", fuzz::message},           {"nluResult", fuzz::nluResult}, {"recording", fuzz::recording},
    {"wakeupConfig", fuzz::wakeupConfig},
};

std::vector<fs::path> filesIn(const std::string& folder) {
    std::vector<fs::path> files;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder, none)) {
        files.push_back(entry.path());
    }
    return files;
}

std::string contentOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Returns the number of inputs. Prints each path first, so that the last one printed is the one that crashed.
std::size_t tryAll(const Input& input, const char* folder) {
    const auto files = filesIn(std::string(FUZZ_FOLDER "/") + folder + "/" + input.name);
    for (const fs::path& path : files) {
        std::fprintf(stderr, "%s\n", path.c_str());
        input.entry(contentOf(path));
    }
    return files.size();
}

}  // namespace

class AFuzzEntry : public testing::TestWithParam<Input> {};

TEST(TheFuzzEntries, SurviveTheInputsThatOnceBrokeThem) {
    std::size_t tried = 0;
    for (const Input& input : kInputs) {
        tried += tryAll(input, "regressions");
    }
    std::size_t all = 0;
    for (const fs::path& folder : filesIn(FUZZ_FOLDER "/regressions")) {
        all += filesIn(folder.string()).size();
    }
    EXPECT_GT(all, 0u);
    EXPECT_EQ(tried, all) << "each folder has the name of an entry";
}

TEST_P(AFuzzEntry, SurvivesEveryInputOfTheCorpus) {
    EXPECT_GT(tryAll(GetParam(), "corpus"), 5u);
}

INSTANTIATE_TEST_SUITE_P(, AFuzzEntry, testing::ValuesIn(kInputs),
                         [](const auto& input) { return std::string(input.param.name); });
