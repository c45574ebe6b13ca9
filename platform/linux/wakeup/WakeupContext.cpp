// SPDX-License-Identifier: Apache-2.0
#include "WakeupContext.h"

#include <pthread.h>

#include <fstream>

#include "GatedSpotter.h"
#include "SphinxSpotter.h"
#include "dlog.h"

namespace wakeup {

namespace {

// Between two looks at an audio input that has nothing: as long as a block of the recorder lasts.
constexpr std::chrono::milliseconds kPause{16};

// A block on loan from the audio input.
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

}  // namespace

WakeupContext::WakeupContext() {
    mThread = std::thread([this] {
        pthread_setname_np(pthread_self(), "orvane-wakeup");
        run();
    });
}

WakeupContext::~WakeupContext() {
    {
        std::lock_guard lock(mMutex);
        mQuit = true;
        cancel();
    }
    mThread.join();
}

bool WakeupContext::Initialize(const std::string& configDirectory, const std::string& configFile) {
    if (IsListening()) {
        fail(Listener::NOT_IN_PROPER_STATE, "Initialize while listening");
        return false;
    }
    try {
        auto spotter = load(configDirectory + "/" + configFile);
        std::lock_guard lock(mMutex);
        mSpotter = spotter;
        return spotter != nullptr;
    } catch (const ConfigFault& fault) {
        fail(fault.code, fault.detail);
    } catch (const std::bad_alloc&) {
        fail(Listener::NOT_ENOUGH_RESOURCE, "memory");
    } catch (const std::exception& fault) {
        fail(Listener::VOCON_INTERNAL_ERROR, fault.what());
    }
    return false;
}

std::shared_ptr<Spotter> WakeupContext::load(const std::string& path) {
    std::ifstream in(path);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in) {
        warn(Listener::FILE_OPEN_FAILED, path);
        return nullptr;
    }
    const WakeupConfig config =
        parseWakeupConfig(text, [this](Listener::Warning code, const std::string& detail) { warn(code, detail); });
    if (config.phrase.empty()) {
        warn(Listener::WAKEUP_WORD_NOT_SET, path);
        return nullptr;
    }
    auto spotter = std::make_shared<GatedSpotter>(std::make_unique<SphinxSpotter>(config), config.speechMarginDb);
    dlog_print(DLOG_INFO, "orvane-wakeup", "listens for \"%s\" of %s", config.phrase.c_str(), path.c_str());
    return spotter;
}

void WakeupContext::AttachListener(nuance::IWakeupListener* listener) {
    std::lock_guard lock(mMutex);
    mListener = listener;
}

void WakeupContext::AttachAudioIn(nuance::IWakeupAudioIn* audioIn) {
    std::unique_lock lock(mMutex);
    if (audioIn != mAudioIn) {
        cancel();
    }
    mAudioIn = audioIn;
    if (std::this_thread::get_id() != mThread.get_id()) {
        // A period just cancelled may still be in a call of the one before, whose owner is about to destroy it.
        mChanged.wait(lock, [this, audioIn] { return !mInUse || mInUse == audioIn; });
    }
}

void WakeupContext::cancel() {
    if (mWanted && mWanted != mCurrent) {
        ++mUntold;
    }
    mWanted = 0;
    mChanged.notify_all();
}

bool WakeupContext::IsListening() {
    std::lock_guard lock(mMutex);
    return mWanted != 0;
}

void WakeupContext::StartListening() {
    std::unique_lock lock(mMutex);
    if (std::this_thread::get_id() != mThread.get_id()) {
        // What the listener does about the end of a period comes before the next one begins.
        mChanged.wait(lock, [this] { return !mTelling; });
    }
    if (!mSpotter || !mAudioIn || mWanted) {
        const auto code = !mSpotter   ? Listener::NOT_INITIALIZED
                          : !mAudioIn ? Listener::AUDIOIN_NOT_ATTACHED
                                      : Listener::ALREADY_LISTENING;
        lock.unlock();
        warn(code, "StartListening");
        return;
    }
    mWanted = ++mLast;
    mChanged.notify_all();
}

void WakeupContext::CancelListening() {
    std::unique_lock lock(mMutex);
    if (!mSpotter) {
        lock.unlock();
        warn(Listener::NOT_INITIALIZED, "CancelListening");
        return;
    }
    // Cancelling when nothing is listened for is no fault: the word may have been heard a moment ago.
    cancel();
}

void WakeupContext::run() {
    std::unique_lock lock(mMutex);
    for (;;) {
        mChanged.wait(lock, [this] { return mQuit || mWanted || mUntold; });
        if (mUntold) {
            --mUntold;
            tellUnlocked(lock, {});
        } else if (mQuit) {
            return;
        } else {
            runPeriod(lock);
        }
    }
}

void WakeupContext::runPeriod(std::unique_lock<std::mutex>& lock) {
    const Period period = mCurrent = mWanted;
    const auto spotter = mSpotter;
    nuance::IWakeupAudioIn* audioIn = mInUse = mAudioIn;
    lock.unlock();
    Outcome outcome = listen(period, *spotter, *audioIn);
    lock.lock();
    mInUse = nullptr;
    mCurrent = 0;
    if (mWanted == period) {
        mWanted = 0;
    } else {
        outcome = {};  // cancelled while the word was being heard: cancelled it is
    }
    tellUnlocked(lock, outcome);
}

void WakeupContext::tellUnlocked(std::unique_lock<std::mutex>& lock, const Outcome& outcome) {
    mTelling = true;
    mChanged.notify_all();
    lock.unlock();
    tell(outcome);
    lock.lock();
    mTelling = false;
    mChanged.notify_all();
}

WakeupContext::Outcome WakeupContext::listen(Period period, Spotter& spotter, nuance::IWakeupAudioIn& audioIn) {
    if (audioIn.Start() != 0) {
        return {Outcome::Failed, {}, Listener::ERROR_FROM_USER_CALLBACK, "the audio input does not start"};
    }
    try {
        spotter.begin();
        Outcome outcome = pull(period, spotter, audioIn);
        spotter.end();
        audioIn.Stop();
        return outcome;
    } catch (const std::exception& fault) {
        audioIn.Stop();
        return {Outcome::Failed, {}, Listener::VOCON_INTERNAL_ERROR, fault.what()};
    }
}

WakeupContext::Outcome WakeupContext::pull(Period period, Spotter& spotter, nuance::IWakeupAudioIn& audioIn) {
    while (isWanted(period)) {
        // Asked first: an input that waits in FetchData may look for its next block far more often.
        bool available = false;
        if (audioIn.HasData(available) == 0 && !available) {
            pauseUnlessChanged(period);
            continue;
        }
        const Block block(audioIn);
        if (block.failed()) {
            return {Outcome::Failed, {}, Listener::ERROR_FROM_USER_CALLBACK, "the audio input fails"};
        }
        if (block.empty()) {
            pauseUnlessChanged(period);
        } else if (auto heard = spotter.accept(block.samples(), block.count())) {
            return {Outcome::Heard, std::move(*heard), {}, {}};
        }
    }
    return {Outcome::Cancelled, {}, {}, {}};
}

bool WakeupContext::isWanted(Period period) {
    std::lock_guard lock(mMutex);
    return mWanted == period;
}

void WakeupContext::pauseUnlessChanged(Period period) {
    std::unique_lock lock(mMutex);
    mChanged.wait_for(lock, kPause, [&] { return mWanted != period; });
}

void WakeupContext::tell(const Outcome& outcome) {
    Listener* to = listener();
    if (!to) {
        return;
    }
    try {
        switch (outcome.kind) {
            case Outcome::Heard:
                return to->OnWakeup(outcome.detection.word, outcome.detection.confidence);
            case Outcome::Cancelled:
                return to->OnCanceled();
            case Outcome::Failed:
                return to->OnError(outcome.error, outcome.detail);
        }
    } catch (const std::exception& fault) {
        fail(Listener::ERROR_FROM_USER_CALLBACK, fault.what());
    }
}

WakeupContext::Listener* WakeupContext::listener() {
    std::lock_guard lock(mMutex);
    return mListener;
}

void WakeupContext::warn(Listener::Warning code, const std::string& detail) {
    if (Listener* to = listener()) {
        to->OnWarning(code, detail);
    }
}

void WakeupContext::fail(Listener::Error code, const std::string& detail) {
    if (Listener* to = listener()) {
        to->OnError(code, detail);
    }
}

}  // namespace wakeup
