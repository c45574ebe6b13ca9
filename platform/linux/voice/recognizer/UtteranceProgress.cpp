// SPDX-License-Identifier: Apache-2.0
#include "UtteranceProgress.h"

#include <utility>

namespace voice {

namespace {

constexpr int kBlockMilliseconds = 16;
// Shorter sounds, such as a door or a pan, are not speech.
constexpr int kSpeechMilliseconds = 100;
// Silence that ends an utterance. It is longer than a person's pause within a command.
constexpr int kEndMilliseconds = 800;
// In a loud room without silence, an utterance ends when its partial result has not changed for this time. It is long
// enough for the free end of a search, which has no partial result.
constexpr int kSteadyMilliseconds = 4000;
// The same, as long as there is no partial result.
constexpr int kWordlessMilliseconds = 6000;
// Limits an utterance in front of a radio.
constexpr int kLongestMilliseconds = 30000;
// The samples before the first loud one that belong to the utterance.
constexpr std::size_t kHistory = 16000 * 3 / 10;
// The time between two partial results.
constexpr int kPartialMilliseconds = 96;

}  // namespace

UtteranceProgress::UtteranceProgress(const UtteranceSettings& settings, const UtteranceEvents& events)
    : mSettings(settings), mEvents(events), mGate(settings.speechMarginDb, kEndMilliseconds) {}

void UtteranceProgress::accept(Recognizer& recognizer, const int16_t* samples, std::size_t count) {
    mElapsed += kBlockMilliseconds;
    mGate.accept(samples, count);
    mPending.insert(mPending.end(), samples, samples + count);
    if (mSpeaking) {
        feed(recognizer);
    } else if (mGate.heardMilliseconds() >= kSpeechMilliseconds) {
        mSpeaking = true;
        mChangedAt = mElapsed;
        mEvents.speech();
        feed(recognizer);
    } else if (!mGate.isOpen() && mPending.size() > 2 * kHistory) {  // an open gate may be the beginning of a word
        mGate.close();
        mPending.erase(mPending.begin(), mPending.end() - kHistory);
    }
}

bool UtteranceProgress::isOver() const {
    if (mElapsed >= kLongestMilliseconds) {
        return true;
    }
    if (!mSettings.endBySilence || !mSpeaking) {
        return false;
    }
    const int steady = mPartialResult.empty() ? kWordlessMilliseconds : kSteadyMilliseconds;
    return mGate.silentMilliseconds() >= kEndMilliseconds || mElapsed - mChangedAt >= steady;
}

void UtteranceProgress::feed(Recognizer& recognizer) {
    recognizer.accept(mPending.data(), mPending.size());
    mPending.clear();
    if (mElapsed - mPartialResultAt >= kPartialMilliseconds) {
        mPartialResultAt = mElapsed;
        reportPartialResult(recognizer);
    }
}

void UtteranceProgress::reportPartialResult(Recognizer& recognizer) {
    std::string text = recognizer.partial();
    if (text != mPartialResult) {
        mPartialResult = std::move(text);
        mChangedAt = mElapsed;
        mEvents.partial(mPartialResult);
    }
}

}  // namespace voice
