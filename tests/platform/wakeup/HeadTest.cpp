// SPDX-License-Identifier: Apache-2.0
#include "wakeup/Head.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "gio/Checksum.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using wakeup::Head;

std::string bytesOf(const std::vector<float>& numbers) {
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(float)};
}

// Two inputs, a layer of two with a normalization, and one score: 10 if the first input is larger than the second.
const std::vector<float> kWeights{1, 0, 0, 1, 0, 0, 1, 1, 0, 0, 10, 0, 0};

std::string fileOf(const std::string& layers, const std::vector<float>& weights) {
    const std::string body = bytesOf(weights);
    return R"({"layers": )" + layers + R"(, "models": {"a.onnx": "12"}, "weights_sha256": ")" + gio::sha256(body) +
           R"(", "words": [{"phrase": "hey", "threshold": 2, "certain": 8}]})" + "\n" + body;
}

class AHead : public testing::Test {
protected:
    AHead() { mDirectory = mkdtemp(mDirectory.data()); }
    ~AHead() override { std::filesystem::remove_all(mDirectory); }

    std::string write(const std::string& bytes) const {
        std::ofstream(mDirectory + "/head", std::ios::binary) << bytes;
        return mDirectory + "/head";
    }
    std::string faultOf(const std::string& bytes) const {
        try {
            const Head head(write(bytes));
        } catch (const std::runtime_error& fault) {
            return fault.what();
        }
        return "";
    }

    std::string mDirectory = "/tmp/orvane-head-XXXXXX";
};

TEST_F(AHead, NormalizesEachLayerExceptTheLast) {
    const Head head(write(fileOf("[2, 2, 1]", kWeights)));
    EXPECT_EQ(head.inputs(), 2U);
    EXPECT_THAT(head.scores({5, 1}), ElementsAre(testing::FloatNear(10, 0.01)));
    EXPECT_THAT(head.scores({1, 5}), ElementsAre(testing::FloatNear(0, 0.01)));
}

TEST_F(AHead, KnowsItsWordsAndModels) {
    const Head head(write(fileOf("[2, 2, 1]", kWeights)));
    ASSERT_TRUE(head.find("hey"));
    EXPECT_EQ(head.find("hey")->threshold, 2);
    EXPECT_EQ(head.find("hey")->certain, 8);
    EXPECT_FALSE(head.find("hey you"));
    EXPECT_EQ(head.models().at("a.onnx"), "12");
}

TEST_F(AHead, ThatIsDamagedIsReportedInOneLine) {
    const std::string good = fileOf("[2, 2, 1]", kWeights);
    std::string modified = good;
    modified.back() ^= 1;
    for (const std::string& bytes :
         {std::string(), std::string("{}\n"), modified, good.substr(0, good.size() - 4), good.substr(0, 20),
          fileOf("[2, 2, 1]", {1, 2}), fileOf("[2, 2, 2]", kWeights), fileOf("[]", {}), fileOf("[0, 1]", kWeights),
          fileOf("[9999999, 9999999, 1]", kWeights), std::string(2 << 20, 'x')}) {
        const std::string fault = faultOf(bytes);
        EXPECT_THAT(fault, HasSubstr("/head: "));
        EXPECT_EQ(fault.find('\n'), std::string::npos) << fault;
    }
}

TEST_F(AHead, ThatIsMissingIsReportedInOneLine) {
    EXPECT_THROW(Head("/nowhere/head"), std::runtime_error);
}

TEST_F(AHead, OfTheInstalledDataKnowsBothWakeWords) {
    const Head head(ORVANE_DATA "/voice/data/wakeword.head");
    EXPECT_EQ(head.inputs(), 16U * 96);
    for (const char* word : {"hey quorbit", "hey vexal"}) {
        ASSERT_TRUE(head.find(word)) << word;
        EXPECT_GT(head.find(word)->certain, head.find(word)->threshold);
    }
}

}  // namespace
