// SPDX-License-Identifier: Apache-2.0
#include "voice/Utterance.h"

#include <chrono>
#include <exception>
#include <stdexcept>
#include <utility>

#include "UtteranceProgress.h"
#include "process/Guard.h"
#include "speech/MemoryReturn.h"

namespace voice {

namespace {

constexpr std::size_t kBlock = 256;  // 16 ms
constexpr const char* kWork = "the recognizer";
// The second decoding of a long search takes many seconds on a slow processor. The product gives up after 30.
constexpr std::chrono::seconds kFinishLimit{40};

struct SourceFailed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace

Utterance::Utterance(EngineFuture engine, UtteranceSettings settings, UtteranceEvents events)
    : mEngine(std::move(engine)), mSettings(settings), mEvents(std::move(events)) {}

void Utterance::cancel() {
    mCanceled = true;
    mSource.interrupt();
}

void Utterance::run() noexcept {
    const speech::MemoryReturn memoryReturn;
    process::contained("utterance thread", [this] {
        try {
            recognize();
        } catch (const std::exception& fault) {
            mEvents.failed(fault.what());
        }
    });
}

void Utterance::recognize() {
    if (!mSource.open()) {
        throw std::runtime_error("No sound source");
    }
    mEvents.recording();
    const std::shared_ptr<Engine> engine = mEngine.get();
    if (!engine) {
        throw std::runtime_error("No speech recognizer");
    }
    std::lock_guard lock(engine->mutex);
    try {
        decode(*engine->recognizer);
    } catch (const SourceFailed&) {
        throw;
    } catch (...) {
        engine->failed = true;
        throw;
    }
}

void Utterance::decode(Recognizer& recognizer) {
    UtteranceProgress progress(mSettings, mEvents);
    recognizer.begin();
    readBlocks(recognizer, progress);
    if (mCanceled) {
        return;
    }
    mSource.interrupt();
    mEvents.processing();
    const status::Work work(mSupervisor, kWork, kFinishLimit);
    mEvents.done(progress.hasSpeech() ? recognizer.finish() : "");
}

void Utterance::readBlocks(Recognizer& recognizer, UtteranceProgress& progress) {
    int16_t block[kBlock];
    while (!mFinish && !mCanceled && !progress.isOver()) {
        const std::size_t count = mSource.read(block, kBlock);
        if (count == 0 && !mCanceled) {
            throw SourceFailed("The sound source has failed");
        }
        const status::Work work(mSupervisor, kWork);
        progress.accept(recognizer, block, count);
    }
}

}  // namespace voice
