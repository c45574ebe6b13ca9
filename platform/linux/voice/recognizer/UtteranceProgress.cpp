// SPDX-License-Identifier: Apache-2.0
#include "UtteranceProgress.h"

#include <utility>

namespace voice {

namespace {

constexpr int kBlockMilliseconds = 16;
// Shorter sounds, such as a door or a pan, do not count as speech.
constexpr int kSpeechMilliseconds = 100;
// The silence that ends an utterance. It is longer than a pause within a command.
constexpr int kEndMilliseconds = 800;
// In a loud room without silence, an utterance ends when its partial result has not changed for this time. The time is
// long enough for the free end of a search, which has no partial result.
constexpr int kSteadyMilliseconds = 4000;
// The same limit before the first partial result.
constexpr int kWordlessMilliseconds = 6000;
// The longest possible utterance, for example when a radio plays.
constexpr int kLongestMilliseconds = 30000;
// The number of samples before the first loud one that belong to the utterance.
constexpr std::size_t kHistory = 16000 * 3 / 10;
// The time between partial results.
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
    } else if (!mGate.isOpen() && mPending.size() > 2 * kHistory) {  // while the gate is open, a word may be starting
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
