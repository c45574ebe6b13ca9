// SPDX-License-Identifier: Apache-2.0
#include "voice/Session.h"

#include <exception>
#include <vector>

#include "speech/MemoryReturn.h"
#include "speech/SpeechGate.h"

namespace voice {

namespace {

constexpr std::size_t kBlock = 256;  // 16 ms
constexpr int kBlockMilliseconds = 16;
// What is shorter is a door or a pan.
constexpr int kSpeechMilliseconds = 100;
// Silence that ends an utterance: longer than a person's pause within a command.
constexpr int kEndMilliseconds = 800;
// In a room too loud to tell silence: the words have not changed for so long, or none have come. Long enough for the
// free end of a search, whose words are not known before its end.
constexpr int kSteadyMilliseconds = 4000;
constexpr int kWordlessMilliseconds = 6000;
// An utterance that never ends, as by a radio.
constexpr int kLongestMilliseconds = 30000;
// Sound from before the first loud one that is recognised too.
constexpr std::size_t kHistory = 16000 * 3 / 10;
// Between two looks at the words until now.
constexpr int kPartialMilliseconds = 96;

}  // namespace

// Follows one utterance block by block: what has begun, what has changed, whether it is over.
class Session::Listener {
public:
    Listener(const SessionSettings& settings, const SessionEvents& events)
        : mSettings(settings), mEvents(events), mGate(settings.speechMarginDb, kEndMilliseconds) {}

    void hear(Recognizer& recognizer, const int16_t* samples, std::size_t count) {
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
        } else if (mGate.isOpen()) {
            // Perhaps the beginning of a word: kept whole.
        } else if (mPending.size() > 2 * kHistory) {
            mGate.close();
            mPending.erase(mPending.begin(), mPending.end() - kHistory);
        }
    }

    bool isOver() const {
        return mElapsed >= kLongestMilliseconds ||
               (mSettings.endBySilence && mSpeaking &&
                (mGate.silentMilliseconds() >= kEndMilliseconds ||
                 mElapsed - mChangedAt >= (mWords.empty() ? kWordlessMilliseconds : kSteadyMilliseconds)));
    }

    bool heardSpeech() const { return mSpeaking; }

private:
    void feed(Recognizer& recognizer) {
        recognizer.accept(mPending.data(), mPending.size());
        mPending.clear();
        if (mElapsed - mLookedAt < kPartialMilliseconds) {
            return;
        }
        mLookedAt = mElapsed;
        std::string words = recognizer.partial();
        if (words != mWords) {
            mWords = std::move(words);
            mChangedAt = mElapsed;
            mEvents.partial(mWords);
        }
    }

    const SessionSettings& mSettings;
    const SessionEvents& mEvents;
    speech::SpeechGate mGate;
    std::vector<int16_t> mPending;
    std::string mWords;
    bool mSpeaking = false;
    int mElapsed = 0;
    int mLookedAt = 0;
    int mChangedAt = 0;
};

Session::Session(EngineFuture engine, SessionSettings settings, SessionEvents events)
    : mEngine(std::move(engine)), mSettings(settings), mEvents(std::move(events)) {}

void Session::cancel() {
    mCancelled = true;
    mSource.interrupt();
}

void Session::run() {
    const speech::MemoryReturn memoryReturn;
    try {
        if (!mSource.open()) {
            mEvents.failed("No sound source");
            return;
        }
        mEvents.recording();
        const std::shared_ptr<Engine> engine = mEngine.get();
        if (!engine) {
            mEvents.failed("No speech recognizer");
            return;
        }
        std::lock_guard lock(engine->mutex);
        Listener listener(mSettings, mEvents);
        engine->recognizer->begin();
        listen(*engine->recognizer, listener);
        if (mCancelled) {
            return;
        }
        mSource.interrupt();
        mEvents.processing();
        mEvents.done(listener.heardSpeech() ? engine->recognizer->finish() : "");
    } catch (const std::exception& fault) {
        mEvents.failed(fault.what());
    }
}

void Session::listen(Recognizer& recognizer, Listener& listener) {
    int16_t block[kBlock];
    while (!mFinish && !mCancelled && !listener.isOver()) {
        const std::size_t count = mSource.read(block, kBlock);
        if (count == 0 && !mCancelled) {
            throw std::runtime_error("The sound source has failed");
        }
        listener.hear(recognizer, block, count);
    }
}

}  // namespace voice
