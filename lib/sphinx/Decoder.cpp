// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Decoder.h"

#include <sphinxbase/ckd_alloc.h>

#include <csetjmp>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

#include "sphinx/Fsg.h"
#include "sphinx/Library.h"
#include "sphinx/ModelDefinition.h"

namespace sphinx {

namespace {

// The library reports errors only as text, on the calling thread.
thread_local char lastError[512];
// Where the library's current call on this thread continues after a fatal error.
thread_local std::jmp_buf* afterFatalError = nullptr;

void keepText(const char* format, va_list arguments) noexcept {
    std::vsnprintf(lastError, sizeof lastError, format, arguments);
    lastError[std::strcspn(lastError, "\n")] = '\0';
}

// The library ends the process after a fatal error when the callback returns.
void keepError(void*, err_lvl_t level, const char* format, ...) noexcept {
    if (level < ERR_ERROR) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    keepText(format, arguments);
    va_end(arguments);
    if (afterFatalError != nullptr && level >= ERR_FATAL) {
        std::longjmp(*afterFatalError, 1);
    }
}

// Runs a call of the library. False after a fatal error, which leaves the objects of the call in an unknown state. The
// jump runs no destructors, so the call must only contain C.
template <typename Call>
bool survived(const Call& call) {
    std::jmp_buf here;
    std::jmp_buf* const outer = afterFatalError;
    if (setjmp(here) != 0) {
        afterFatalError = outer;
        return false;
    }
    afterFatalError = &here;
    call();
    afterFatalError = outer;
    return true;
}

[[noreturn]] void fail(const std::string& what) {
    throw Error(lastError[0] == '\0' ? what : what + ": " + lastError);
}

struct FreeConfig {
    void operator()(cmd_ln_t* config) const noexcept { library().cmd_ln_free_r(config); }
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

// Replaces the library's out-of-memory handler, which ends the process or jumps to one place for all threads.
extern "C" void ckd_fail(char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    keepText(format, arguments);
    va_end(arguments);
    if (afterFatalError == nullptr) {
        std::fprintf(stderr, "the speech library cannot continue: %s\n", lastError);
        std::abort();
    }
    std::longjmp(*afterFatalError, 1);
}

void Decoder::Free::operator()(ps_decoder_s* decoder) const noexcept {
    library().ps_free(decoder);
}

Decoder::Decoder(const Options& options) {
    quietLibrary();
    lastError[0] = '\0';
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

void Decoder::keepMean() {
    if (cmn_t* normaliser = library().ps_get_feat(mDecoder.get())->cmn_struct) {
        mInitialMean.resize(static_cast<std::size_t>(normaliser->veclen));
        library().cmn_live_get(normaliser, mInitialMean.data());
    }
}

// After a fatal error, the decoder cannot be used or freed.
template <typename Call>
void Decoder::call(const char* failure, const Call& function) {
    if (!mDecoder) {
        fail(std::string(failure) + " after a fatal error");
    }
    lastError[0] = '\0';
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

std::string Decoder::text() const {
    const char* text = mDecoder ? library().ps_get_hyp(mDecoder.get(), nullptr) : nullptr;
    return text ? text : "";
}

std::vector<Segment> Decoder::segments() const {
    std::vector<Segment> segments;
    for (ps_seg_t* it = mDecoder ? library().ps_seg_iter(mDecoder.get()) : nullptr; it;
         it = library().ps_seg_next(it)) {
        Segment segment;
        segment.word = library().ps_seg_word(it);
        library().ps_seg_frames(it, &segment.firstFrame, &segment.lastFrame);
        segment.probability = library().ps_seg_prob(it, nullptr, nullptr, nullptr);
        segments.push_back(std::move(segment));
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
