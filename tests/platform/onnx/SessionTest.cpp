// SPDX-License-Identifier: Apache-2.0
#include "onnx/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "TinyModel.h"

namespace {

using onnx::Error;
using onnx::Runtime;
using onnx::Session;
using onnx::Tensor;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kLibraryDirectory = ORVANE_DATA "/speech";

class AnOnnxSession : public testing::Test {
protected:
    void SetUp() override {
        try {
            mRuntime = Runtime::open(kLibraryDirectory);
        } catch (const Error& fault) {
            GTEST_SKIP() << "ONNX Runtime is not installed: " << fault.what();
        }
        char made[] = "/tmp/orvane-onnx-XXXXXX";
        mDirectory = mkdtemp(made);
    }
    void TearDown() override {
        if (!mDirectory.empty()) {
            std::filesystem::remove_all(mDirectory);
        }
    }

    std::string write(const std::string& bytes) const {
        const std::string path = mDirectory + "/model.onnx";
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::string faultOfLoading(const std::string& path) const {
        try {
            const Session session(mRuntime, path);
        } catch (const Error& fault) {
            return fault.what();
        }
        return "";
    }
    // Runs the tiny model with the rows {1, 2} and {3, 4}, and returns "y".
    std::vector<float> pick(Session& session, const std::vector<int64_t>& rows, bool keep) const {
        const Tensor x(mRuntime, std::vector<float>{1, 2, 3, 4}, {2, 2});
        const Tensor row(mRuntime, rows, {static_cast<int64_t>(rows.size())});
        const Tensor flag(mRuntime, keep);
        const auto results = session.run({{"x", &x}, {"row", &row}, {"keep", &flag}}, {"y"});
        return {results[0].floats(), results[0].floats() + results[0].count()};
    }

    std::shared_ptr<const Runtime> mRuntime;
    std::string mDirectory;
};

TEST_F(AnOnnxSession, ComputesWithFloatsIntegersAndTruthValues) {
    Session session(mRuntime, write(onnx::tinyModel()));
    EXPECT_THAT(pick(session, {1}, true), ElementsAre(13, 24));
    EXPECT_THAT(pick(session, {1, 0, 1}, false), ElementsAre(-13, -24, -11, -22, -13, -24));
}

TEST_F(AnOnnxSession, ComputesTheSameWithEveryOption) {
    onnx::SessionOptions options;
    options.arena = options.pattern = true;
    options.prepack = false;
    Session session(mRuntime, write(onnx::tinyModel()), options);
    EXPECT_THAT(pick(session, {0}, true), ElementsAre(11, 22));
}

TEST_F(AnOnnxSession, NamesItsInputsAndOutputs) {
    const Session session(mRuntime, write(onnx::tinyModel()));
    ASSERT_EQ(session.inputs().size(), 3u);
    EXPECT_EQ(session.inputs()[0].name, "x");
    EXPECT_THAT(session.inputs()[0].shape, ElementsAre(-1, 2));
    EXPECT_EQ(session.inputs()[0].type, onnx::Type::Float);
    EXPECT_EQ(session.inputs()[1].type, onnx::Type::Int64);
    EXPECT_EQ(session.inputs()[2].type, onnx::Type::Bool);
    EXPECT_THAT(session.outputs(), ElementsAre("y", "sum"));
}

TEST_F(AnOnnxSession, ReturnsOutputsThatCanBeInputsAgain) {
    Session session(mRuntime, write(onnx::tinyModel()));
    const Tensor x(mRuntime, std::vector<float>{1, 2}, {1, 2});
    const Tensor row(mRuntime, std::vector<int64_t>{0}, {1});
    const Tensor flag(mRuntime, true);
    auto once = session.run({{"x", &x}, {"row", &row}, {"keep", &flag}}, {"sum"});
    const Tensor kept = std::move(once[0]);
    const auto twice = session.run({{"x", &kept}, {"row", &row}, {"keep", &flag}}, {"sum"});
    EXPECT_EQ(twice[0].floats()[1], 42);
}

TEST_F(AnOnnxSession, RejectsATensorWhoseCountDoesNotFitItsShape) {
    EXPECT_THROW(Tensor(mRuntime, std::vector<float>{1, 2, 3}, {2, 2}), Error);
}

TEST_F(AnOnnxSession, RejectsInputsThatDoNotFitTheModel) {
    Session session(mRuntime, write(onnx::tinyModel()));
    const Tensor x(mRuntime, std::vector<float>{1, 2, 3}, {1, 3});
    const Tensor good(mRuntime, std::vector<float>{1, 2}, {1, 2});
    const Tensor row(mRuntime, std::vector<int64_t>{0}, {1});
    const Tensor flag(mRuntime, true);
    EXPECT_THROW(session.run({{"x", &x}, {"row", &row}, {"keep", &flag}}, {"y"}), Error) << "the shape";
    EXPECT_THROW(session.run({{"x", &row}, {"row", &row}, {"keep", &flag}}, {"y"}), Error) << "the type";
    EXPECT_THROW(session.run({{"z", &good}, {"row", &row}, {"keep", &flag}}, {"y"}), Error) << "an input's name";
    EXPECT_THROW(session.run({{"x", &good}, {"row", &row}, {"keep", &flag}}, {"z"}), Error) << "an output's name";
    EXPECT_THROW(session.run({{"x", &good}}, {"y"}), Error) << "a missing input";
    EXPECT_THROW(pick(session, {7}, true), Error) << "a row that does not exist";
    EXPECT_THAT(pick(session, {0}, true), ElementsAre(11, 22)) << "The session still works.";
}

TEST_F(AnOnnxSession, ReportsAMissingTruncatedOrReplacedModelInOneLine) {
    const std::string model = onnx::tinyModel();
    for (const std::string& path : {mDirectory + "/missing.onnx", mDirectory}) {
        EXPECT_THAT(faultOfLoading(path), HasSubstr(path));
    }
    for (std::size_t length = 0; length < model.size(); length += 7) {
        const std::string fault = faultOfLoading(write(model.substr(0, length)));
        EXPECT_THAT(fault, HasSubstr(mDirectory)) << length << " bytes";
        EXPECT_EQ(fault.find('\n'), std::string::npos);
    }
    EXPECT_NE(faultOfLoading(write("This is a text, not a model.\n")), "");
}

}  // namespace
