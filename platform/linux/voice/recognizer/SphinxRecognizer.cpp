// SPDX-License-Identifier: Apache-2.0
#include "SphinxRecognizer.h"

#include <algorithm>
#include <filesystem>

#include "Grammar.h"
#include "process/FaultLog.h"
#include "process/Owner.h"
#include "speech/ModelManifest.h"
#include "sphinx/MemoryFile.h"
#include "status/Problems.h"

namespace voice {

namespace {

constexpr char kTag[] = "orvane-voice";
constexpr char kDictation[] = "dictation";
constexpr std::size_t kFrameSamples = 160;
// Decoding of free words starts a little before their first frame in the grammar, and ends a little after their last.
constexpr std::size_t kLeadSamples = 5 * kFrameSamples;

sphinx::Options options(const Language& language, const std::string& dictionary) {
    // The decoder must not drop silent frames, because the number of a frame determines its time.
    return {{"hmm", language.acousticModel},
            {"dict", dictionary},
            {"cmn", "live"},
            {"remove_silence", "no"},
            {"bestpath", "no"}};
}

// Throws if a model is damaged.
const Language& verified(const Language& language) {
    auto& models = process::shared<speech::InstalledModels>();
    models.verify(language.acousticModel);
    models.verify(language.dictionary);
    return language;
}

// Null if the model is damaged.
std::unique_ptr<sphinx::Decoder> openDictation(const Language& language) {
    auto& problems = process::shared<status::Problems>();
    try {
        process::shared<speech::InstalledModels>().verify(language.languageModel);
        sphinx::Options all = options(language, language.dictionary);
        all["lm"] = language.languageModel;
        all["bestpath"] = "yes";
        auto decoder = std::make_unique<sphinx::Decoder>(all);
        problems.set(status::Problems::Part::Recognizer, "");
        return decoder;
    } catch (const std::runtime_error& fault) {
        process::logFault(DLOG_ERROR, kTag, kDictation, std::string("no free speech: ") + fault.what());
        problems.set(status::Problems::Part::Recognizer, std::string("No free speech: ") + fault.what());
        return nullptr;
    }
}

std::string decodeWhole(sphinx::Decoder& decoder, const int16_t* samples, std::size_t count) {
    decoder.start();
    decoder.accept(samples, count, true);
    decoder.finish();
    return decoder.text();
}

std::string join(const std::string& words, const std::string& more) {
    return words.empty() || more.empty() ? words + more : words + " " + more;
}

bool isMark(const std::string& word, char mark) {
    return !word.empty() && word[0] == mark;
}

}  // namespace

SphinxRecognizer::SphinxRecognizer(const Language& language, SentenceFile& commands)
    : mLanguage(verified(language)),
      mDecoder(options(language,
                       sphinx::MemoryFile(sphinx::dictionaryText(soundsOf(commands, language.dictionary))).path())) {
    mDecoder.searchGrammar(buildGrammar(commands, mDecoder));
}

void SphinxRecognizer::begin() {
    mUtterance.clear();
    mDecoder.start();
}

void SphinxRecognizer::accept(const int16_t* samples, std::size_t count) {
    mUtterance.insert(mUtterance.end(), samples, samples + count);
    int16_t* added = mUtterance.data() + mUtterance.size() - count;
    mDither.apply(added, count);
    mDecoder.accept(added, count);
}

std::string SphinxRecognizer::partial() {
    std::string words;
    for (const std::string& word : splitWords(mDecoder.text())) {
        if (isMark(word, kFreePhone)) {
            loadDictation();
            break;
        }
        if (!isMark(word, kFillerPhone)) {
            words = join(words, word);
        }
    }
    return words;
}

std::string SphinxRecognizer::finish() {
    mDecoder.finish();
    decodeWhole(mDecoder, mUtterance.data(), mUtterance.size());
    const Spoken spoken = splitText();
    if (!spoken.hasFreeWords) {
        return spoken.before;
    }
    const std::string free = dictate(!spoken.after.empty());
    return free.empty() ? "" : join(join(spoken.before, free), spoken.after);
}

SphinxRecognizer::Spoken SphinxRecognizer::splitText() {
    Spoken spoken;
    for (const std::string& word : splitWords(mDecoder.text())) {
        if (isMark(word, kFillerPhone)) {
            return {};
        }
        if (isMark(word, kFreePhone)) {
            spoken.hasFreeWords = true;
        } else {
            std::string& side = spoken.hasFreeWords ? spoken.after : spoken.before;
            side = join(side, word);
        }
    }
    return spoken;
}

void SphinxRecognizer::loadDictation() {
    std::error_code ignored;
    if (!mDictation && !mLoading.valid() && std::filesystem::exists(mLanguage.languageModel, ignored)) {
        mLoading = std::async(std::launch::async, openDictation, mLanguage);
    }
}

std::string SphinxRecognizer::dictate(bool endsBefore) {
    loadDictation();
    if (mLoading.valid()) {
        mDictation = mLoading.get();
    }
    if (!mDictation) {
        process::logFault(DLOG_WARN, kTag, kDictation, "no language model for free speech in " + mLanguage.id);
        return "";
    }
    std::size_t from = mUtterance.size();
    std::size_t to = 0;
    for (const sphinx::Segment& segment : mDecoder.segments()) {
        if (isMark(segment.word, kFreePhone)) {
            from = std::min(from, static_cast<std::size_t>(segment.firstFrame) * kFrameSamples);
            to = (static_cast<std::size_t>(segment.lastFrame) + 1) * kFrameSamples + kLeadSamples;
        }
    }
    from -= std::min(from, kLeadSamples);
    to = endsBefore ? std::min(to, mUtterance.size()) : mUtterance.size();
    return decodeWhole(*mDictation, mUtterance.data() + from, to - from);
}

}  // namespace voice
