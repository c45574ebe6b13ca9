// SPDX-License-Identifier: Apache-2.0
// PocketSphinx runs out of memory in each of its calls.
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>

#include "Speech.h"
#include "SphinxMemory.h"
#include "sphinx/Decoder.h"
#include "sphinx/Fsg.h"
#include "sphinx/MemoryFile.h"
#include "sphinx/Models.h"

namespace {

using sphinx::Decoder;

std::unique_ptr<Decoder> load() {
    const sphinx::MemoryFile words("hey HH EY\nyou Y UW\n");
    return std::make_unique<Decoder>(
        sphinx::Options{{"hmm", sphinx::modelPath("en-us/en-us")}, {"dict", words.path()}, {"bestpath", "no"}});
}

void setGrammar(Decoder& decoder) {
    sphinx::Fsg grammar(decoder, 3, 0, 2);
    grammar.addWord(0, 1, "hey");
    grammar.addWord(1, 2, "you");
    grammar.addSilent(0, 2, 0.01);
    grammar.close();
    decoder.searchGrammar(grammar);
}

// A decoder that has heard "hey you".
std::unique_ptr<Decoder> hear() {
    auto decoder = load();
    setGrammar(*decoder);
    const auto spoken = speech::say(speech::kVoices[0], "hey you");
    decoder->start();
    decoder->accept(spoken.data(), spoken.size(), true);
    decoder->finish();
    return decoder;
}

// Repeats a use of a new decoder with more blocks of memory each time until it needs no more. Ends the process with
// 0 if memory ran out at least once and each time an exception was thrown. The memory of lost decoders ends with it.
[[noreturn]] void useWithLittleMemory(const std::function<std::unique_ptr<Decoder>()>& make,
                                      const std::function<void(std::unique_ptr<Decoder>&)>& use) {
    int failures = 0;
    for (long blocks = 0; blocks < 100; blocks += 1 + blocks / 3) {
        auto decoder = make();
        sphinxmemory::limit(blocks);
        bool thrown = false;
        try {
            use(decoder);
        } catch (const sphinx::Error&) {
            thrown = true;
        }
        const bool out = sphinxmemory::isOut();
        sphinxmemory::limit(-1);
        if (thrown != out) {
            _exit(2);
        }
        if (!out) {
            _exit(failures > 0 ? 0 : 3);
        }
        ++failures;
    }
    _exit(0);
}

class ADecoderWithoutMemory : public testing::Test {
protected:
    ADecoderWithoutMemory() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ADecoderWithoutMemory, CannotReadItsOptionsOrModels) {
    EXPECT_EXIT(
        useWithLittleMemory([] { return nullptr; }, [](std::unique_ptr<Decoder>& decoder) { decoder = load(); }),
        testing::ExitedWithCode(0), "");
}

TEST_F(ADecoderWithoutMemory, CannotBuildAGrammar) {
    EXPECT_EXIT(useWithLittleMemory(load, [](std::unique_ptr<Decoder>& decoder) { setGrammar(*decoder); }),
                testing::ExitedWithCode(0), "");
}

TEST_F(ADecoderWithoutMemory, CannotReturnItsText) {
    EXPECT_EXIT(useWithLittleMemory(hear, [](std::unique_ptr<Decoder>& decoder) { decoder->text(); }),
                testing::ExitedWithCode(0), "");
}

TEST_F(ADecoderWithoutMemory, CannotReturnItsWords) {
    EXPECT_EXIT(useWithLittleMemory(hear, [](std::unique_ptr<Decoder>& decoder) { decoder->segments(); }),
                testing::ExitedWithCode(0), "");
}

}  // namespace
