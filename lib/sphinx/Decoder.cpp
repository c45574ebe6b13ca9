// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Decoder.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

#include "sphinx/Fsg.h"
#include "sphinx/Library.h"

namespace sphinx {

namespace {

// The library reports errors only as text, on the calling thread.
thread_local std::string lastError;

void keepError(void*, err_lvl_t level, const char* format, ...) noexcept {
    if (level < ERR_ERROR) {
        return;
    }
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    lastError = text;
    while (!lastError.empty() && lastError.back() == '\n') {
        lastError.pop_back();
    }
}

[[noreturn]] void fail(const std::string& what) {
    throw Error(lastError.empty() ? what : what + ": " + lastError);
}

struct FreeConfig {
    void operator()(cmd_ln_t* config) const noexcept { library().cmd_ln_free_r(config); }
};
using Config = std::unique_ptr<cmd_ln_t, FreeConfig>;

Config makeConfig(const Options& options) {
    std::vector<std::string> words{"orvane"};
    for (const auto& [name, value] : options) {
        words.push_back("-" + name);
        words.push_back(value);
    }
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    Config config(library().cmd_ln_parse_r(nullptr, library().ps_args(), static_cast<int>(arguments.size()),
                                           arguments.data(), TRUE));
    if (!config) {
        fail("bad decoder options");
    }
    return config;
}

void quietLibrary() {
    static std::once_flag once;
    std::call_once(once, [] {
        library().err_set_logfp(nullptr);
        library().err_set_callback(keepError, nullptr);
    });
}

constexpr char kSearch[] = "orvane";

}  // namespace

void Decoder::Free::operator()(ps_decoder_s* decoder) const noexcept {
    library().ps_free(decoder);
}

Decoder::Decoder(const Options& options) {
    quietLibrary();
    lastError.clear();
    Config config = makeConfig(options);
    mDecoder.reset(library().ps_init(config.get()));
    if (!mDecoder) {
        fail("cannot read the models");
    }
    if (cmn_t* normaliser = library().ps_get_feat(mDecoder.get())->cmn_struct) {
        mInitialMean.resize(static_cast<std::size_t>(normaliser->veclen));
        library().cmn_live_get(normaliser, mInitialMean.data());
    }
}

Decoder::~Decoder() {
    // The library leaks the memory of an utterance that has not ended.
    if (mRunning) {
        library().ps_end_utt(mDecoder.get());
    }
}

void Decoder::searchKeyphrases(const std::string& keyphraseFile) {
    lastError.clear();
    if (library().ps_set_kws(mDecoder.get(), kSearch, keyphraseFile.c_str()) < 0 ||
        library().ps_set_search(mDecoder.get(), kSearch) < 0) {
        fail("bad key phrase");
    }
}

void Decoder::searchGrammar(const Fsg& grammar) {
    lastError.clear();
    if (library().ps_set_fsg(mDecoder.get(), kSearch, grammar.handle()) < 0 ||
        library().ps_set_search(mDecoder.get(), kSearch) < 0) {
        fail("bad grammar");
    }
}

void Decoder::start() {
    finish();
    lastError.clear();
    if (!mInitialMean.empty()) {
        library().cmn_live_set(library().ps_get_feat(mDecoder.get())->cmn_struct, mInitialMean.data());
    }
    if (library().ps_start_stream(mDecoder.get()) < 0 || library().ps_start_utt(mDecoder.get()) < 0) {
        fail("cannot start the utterance");
    }
    mRunning = true;
}

void Decoder::accept(const int16_t* samples, std::size_t count, bool whole) {
    if (library().ps_process_raw(mDecoder.get(), samples, count, FALSE, whole ? TRUE : FALSE) < 0) {
        fail("decoding failed");
    }
}

void Decoder::finish() {
    if (std::exchange(mRunning, false) && library().ps_end_utt(mDecoder.get()) < 0) {
        fail("cannot end the utterance");
    }
}

std::string Decoder::text() const {
    const char* text = library().ps_get_hyp(mDecoder.get(), nullptr);
    return text ? text : "";
}

std::vector<Segment> Decoder::segments() const {
    std::vector<Segment> segments;
    for (ps_seg_t* it = library().ps_seg_iter(mDecoder.get()); it; it = library().ps_seg_next(it)) {
        Segment segment;
        segment.word = library().ps_seg_word(it);
        library().ps_seg_frames(it, &segment.firstFrame, &segment.lastFrame);
        segment.probability = library().ps_seg_prob(it, nullptr, nullptr, nullptr);
        segments.push_back(std::move(segment));
    }
    return segments;
}

double Decoder::naturalLog(int probability) const {
    return library().logmath_log_to_ln(library().ps_get_logmath(mDecoder.get()), probability);
}

}  // namespace sphinx
