// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Decoder.h"

#include <utility>

#include "sphinx/FatalErrors.h"
#include "sphinx/Fsg.h"
#include "sphinx/Library.h"
#include "sphinx/ModelDefinition.h"

namespace sphinx {

namespace {

struct FreeConfig {
    void operator()(cmd_ln_t* config) const noexcept {
        survived([&] { library().cmd_ln_free_r(config); });
    }
};
using Config = std::unique_ptr<cmd_ln_t, FreeConfig>;

// The models are read, not mapped: a file that becomes shorter while it is mapped would end the process.
Config makeConfig(const Options& options) {
    std::vector<std::string> words{"orvane", "-mmap", "no"};
    for (const auto& [name, value] : options) {
        words.push_back("-" + name);
        words.push_back(value);
    }
    std::vector<char*> arguments;
    arguments.reserve(words.size());
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    Config config;
    const int count = static_cast<int>(arguments.size());
    const bool done = survived(
        [&] { config.reset(library().cmd_ln_parse_r(nullptr, library().ps_args(), count, arguments.data(), TRUE)); });
    if (!done || !config) {
        fail("bad decoder options");
    }
    return config;
}

constexpr char kSearch[] = "orvane";

}  // namespace

void Decoder::Free::operator()(ps_decoder_s* decoder) const noexcept {
    survived([&] { library().ps_free(decoder); });
}

Decoder::Decoder(const Options& options) {
    keepErrors();
    forgetError();
    const auto model = options.find("hmm");
    if (model != options.end() && !isWholeDefinition(model->second + "/mdef")) {
        fail("damaged model: " + model->second + "/mdef");
    }
    Config config = makeConfig(options);
    if (!survived([&] { mDecoder.reset(library().ps_init(config.get())); })) {
        static_cast<void>(config.release());  // the leaked decoder still refers to it
    }
    if (!mDecoder) {
        fail("cannot read the models");
    }
    keepMean();
}

// After a fatal error, the decoder cannot be used or freed.
template <typename Call>
void Decoder::call(const char* failure, const Call& function) {
    if (!mDecoder) {
        fail(std::string(failure) + " after a fatal error");
    }
    forgetError();
    int result = 0;
    if (!survived([&] { result = function(mDecoder.get()); })) {
        static_cast<void>(mDecoder.release());
        mRunning = false;
        fail(failure);
    }
    if (result < 0) {
        fail(failure);
    }
}

void Decoder::keepMean() {
    if (cmn_t* normaliser = library().ps_get_feat(mDecoder.get())->cmn_struct) {
        mInitialMean.resize(static_cast<std::size_t>(normaliser->veclen));
        call("cannot read the model's mean", [&](ps_decoder_s*) {
            library().cmn_live_get(normaliser, mInitialMean.data());
            return 0;
        });
    }
}

Decoder::~Decoder() {
    // The library leaks the memory of an utterance that has not ended.
    if (mRunning && !survived([this] { library().ps_end_utt(mDecoder.get()); })) {
        static_cast<void>(mDecoder.release());
    }
}

void Decoder::searchKeyphrases(const std::string& keyphraseFile) {
    call("bad key phrase", [&](ps_decoder_s* decoder) {
        return library().ps_set_kws(decoder, kSearch, keyphraseFile.c_str()) < 0
                   ? -1
                   : library().ps_set_search(decoder, kSearch);
    });
}

void Decoder::searchGrammar(const Fsg& grammar) {
    call("bad grammar", [&](ps_decoder_s* decoder) {
        return library().ps_set_fsg(decoder, kSearch, grammar.handle()) < 0 ? -1
                                                                            : library().ps_set_search(decoder, kSearch);
    });
}

void Decoder::start() {
    finish();
    call("cannot start the utterance", [this](ps_decoder_s* decoder) {
        if (!mInitialMean.empty()) {
            library().cmn_live_set(library().ps_get_feat(decoder)->cmn_struct, mInitialMean.data());
        }
        return library().ps_start_stream(decoder) < 0 ? -1 : library().ps_start_utt(decoder);
    });
    mRunning = true;
}

void Decoder::accept(const int16_t* samples, std::size_t count, bool whole) {
    call("decoding failed", [&](ps_decoder_s* decoder) {
        return library().ps_process_raw(decoder, samples, count, FALSE, whole ? TRUE : FALSE);
    });
}

void Decoder::finish() {
    if (std::exchange(mRunning, false)) {
        call("cannot end the utterance", [](ps_decoder_s* decoder) { return library().ps_end_utt(decoder); });
    }
}

std::string Decoder::text() {
    const char* text = nullptr;
    call("cannot read the text", [&](ps_decoder_s* decoder) {
        text = library().ps_get_hyp(decoder, nullptr);
        return 0;
    });
    return text ? text : "";
}

std::vector<Segment> Decoder::segments() {
    std::vector<Segment> segments;
    ps_seg_t* at = nullptr;
    call("cannot read the words", [&](ps_decoder_s* decoder) {
        at = library().ps_seg_iter(decoder);
        return 0;
    });
    while (at) {
        Segment segment;
        segment.word = library().ps_seg_word(at);
        library().ps_seg_frames(at, &segment.firstFrame, &segment.lastFrame);
        segment.probability = library().ps_seg_prob(at, nullptr, nullptr, nullptr);
        segments.push_back(std::move(segment));
        call("cannot read the words", [&](ps_decoder_s*) {
            at = library().ps_seg_next(at);
            return 0;
        });
    }
    return segments;
}

double Decoder::naturalLog(int probability) const {
    if (!mDecoder) {
        fail("the decoder is lost");
    }
    return library().logmath_log_to_ln(library().ps_get_logmath(mDecoder.get()), probability);
}

}  // namespace sphinx
