// SPDX-License-Identifier: Apache-2.0
#include "ListeningPeriod.h"

#include <exception>
#include <utility>

#include "process/Owner.h"
#include "status/Supervisor.h"

namespace wakeup {

namespace {

using Listener = nuance::IWakeupListener;

// The pause before an empty audio input is polled again: the duration of one block.
constexpr std::chrono::milliseconds kPause{16};

// A block borrowed from the audio input.
class Block {
public:
    explicit Block(nuance::IWakeupAudioIn& from) : mFrom(from), mResult(from.FetchData(mData, mSize)) {}
    ~Block() {
        if (mData) {
            mFrom.ReturnData(mData);
        }
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    bool failed() const { return mResult != 0; }
    bool empty() const { return !mData; }
    const int16_t* samples() const { return static_cast<const int16_t*>(mData); }
    std::size_t count() const { return mSize / sizeof(int16_t); }

private:
    nuance::IWakeupAudioIn& mFrom;
    void* mData = nullptr;
    unsigned int mSize = 0;
    int mResult;
};

Outcome failure(Listener::Error code, const std::string& detail) {
    return {Outcome::Failed, {}, code, detail};
}

Outcome search(Spotter& spotter, nuance::IWakeupAudioIn& audioIn, const CanceledWithin& canceledWithin) {
    auto& supervisor = process::shared<status::Supervisor>();
    std::chrono::milliseconds pause{0};
    while (!canceledWithin(std::exchange(pause, std::chrono::milliseconds{0}))) {
        // FetchData would also wait for a block, but it may poll far more often than every kPause.
        bool available = false;
        if (audioIn.HasData(available) == 0 && !available) {
            pause = kPause;
            continue;
        }
        const Block block(audioIn);
        if (block.failed()) {
            return failure(Listener::ERROR_FROM_USER_CALLBACK, "the audio input failed");
        }
        if (block.empty()) {
            pause = kPause;
            continue;
        }
        const status::Work work(supervisor, "the wake engine");
        if (auto detection = spotter.accept(block.samples(), block.count())) {
            return {Outcome::Detected, std::move(*detection), {}, {}};
        }
    }
    return {};
}

}  // namespace

Outcome listen(Spotter& spotter, nuance::IWakeupAudioIn& audioIn, const CanceledWithin& canceledWithin) {
    if (audioIn.Start() != 0) {
        return failure(Listener::ERROR_FROM_USER_CALLBACK, "the audio input did not start");
    }
    try {
        spotter.begin();
        Outcome outcome = search(spotter, audioIn, canceledWithin);
        spotter.end();
        audioIn.Stop();
        return outcome;
    } catch (const std::exception& fault) {
        audioIn.Stop();
        return failure(Listener::VOCON_INTERNAL_ERROR, fault.what());
    }
}

}  // namespace wakeup
