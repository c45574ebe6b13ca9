// SPDX-License-Identifier: Apache-2.0
// The wake-up engine's context and its thread.
//
// The thread sleeps until a period of listening is wanted, pulls blocks from the audio input, hands them to the spotter
// and tells the listener. A period is known by its number: cancelling takes the number away, and the thread ends the
// period when it next looks, so nobody waits for it. A new period may be wanted before the thread has left the old one.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

#include "Spotter.h"
#include "WakeupConfig.h"
#include "wakeup_engine.h"

namespace wakeup {

class WakeupContext final : public nuance::IWakeupCtx {
public:
    WakeupContext();
    ~WakeupContext() override;

    bool Initialize(const std::string& configDirectory, const std::string& configFile) override;
    void AttachListener(nuance::IWakeupListener* listener) override;
    void AttachAudioIn(nuance::IWakeupAudioIn* audioIn) override;
    bool IsListening() override;
    void StartListening() override;
    void CancelListening() override;

private:
    using Listener = nuance::IWakeupListener;
    using Period = uint64_t;  // 0: none

    // How a period ended, for the listener.
    struct Outcome {
        enum Kind { Heard, Cancelled, Failed } kind = Cancelled;
        Detection detection;
        Listener::Error error = Listener::VOCON_INTERNAL_ERROR;
        std::string detail;
    };

    std::shared_ptr<Spotter> load(const std::string& path);

    void run();
    void runPeriod(std::unique_lock<std::mutex>& lock);
    Outcome listen(Period period, Spotter& spotter, nuance::IWakeupAudioIn& audioIn);
    Outcome pull(Period period, Spotter& spotter, nuance::IWakeupAudioIn& audioIn);
    void cancel();  // under the mutex
    bool isWanted(Period period);
    void pauseUnlessChanged(Period period);
    void tellUnlocked(std::unique_lock<std::mutex>& lock, const Outcome& outcome);
    void tell(const Outcome& outcome);

    Listener* listener();
    void warn(Listener::Warning code, const std::string& detail);
    void fail(Listener::Error code, const std::string& detail);

    std::mutex mMutex;
    std::condition_variable mChanged;
    Listener* mListener = nullptr;
    nuance::IWakeupAudioIn* mAudioIn = nullptr;
    nuance::IWakeupAudioIn* mInUse = nullptr;  // by the thread, during a period
    std::shared_ptr<Spotter> mSpotter;         // set by Initialize
    Period mWanted = 0;
    Period mCurrent = 0;  // the thread's
    Period mLast = 0;
    int mUntold = 0;        // periods cancelled before the thread took them up
    bool mTelling = false;  // the end of a period
    bool mQuit = false;
    std::thread mThread;  // last: everything else is there when it starts
};

}  // namespace wakeup
