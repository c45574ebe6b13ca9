// SPDX-License-Identifier: Apache-2.0
#include "onnx/Runtime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

using testing::HasSubstr;

// Opens the library in a directory whose libonnxruntime.so is this file. Returns the error, or "" if there is none.
std::string faultOf(const std::string& file) {
    char directory[] = "/tmp/orvane-onnx-XXXXXX";
    std::filesystem::create_symlink(file, std::string(mkdtemp(directory)) + "/libonnxruntime.so");
    std::string fault;
    try {
        onnx::Runtime::open(directory);
    } catch (const onnx::Error& error) {
        fault = error.what();
    }
    std::filesystem::remove_all(directory);
    return fault;
}

TEST(AnOnnxRuntime, ThatIsMissingOrReplacedIsReportedInOneLine) {
    for (const char* file : {"/nowhere", "/proc/self/status", "/proc/self/exe"}) {
        const std::string fault = faultOf(file);
        if (fault.empty()) {
            GTEST_SKIP() << "the system has an ONNX Runtime, which comes first";
        }
        EXPECT_THAT(fault, HasSubstr("libonnxruntime.so"));
        EXPECT_EQ(fault.find('\n'), std::string::npos);
    }
}

}  // namespace
