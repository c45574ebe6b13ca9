// SPDX-License-Identifier: Apache-2.0
// A wake-up engine that hears nothing: it calls when the benchmark tells it to, so that the moment is known.
//   $BENCH_ENGINE_TAKES_AUDIO yes  its thread takes every block and throws it away
//   $BENCH_ENGINE_SHOTS            a pipe; each byte is a wake-up, once listening has begun. Recorded as "wake-up call"
//                                  with the time of the call under "called".
#pragma once

#include <wakeup_engine.h>

#include <atomic>
#include <thread>

namespace bench {

class ScriptedEngine : public nuance::IWakeupCtx {
public:
    ScriptedEngine();
    ~ScriptedEngine() override;

    bool Initialize(const std::string&, const std::string&) override { return true; }
    void AttachListener(nuance::IWakeupListener* listener) override { mListener = listener; }
    void AttachAudioIn(nuance::IWakeupAudioIn* audioIn) override { mAudioIn = audioIn; }
    bool IsListening() override { return mListening; }
    void StartListening() override { mListening = true; }
    void CancelListening() override { mListening = false; }

private:
    void takeAudio();
    void takeShots(const std::string& pipe);
    void callOnce();

    std::atomic<nuance::IWakeupListener*> mListener{nullptr};
    std::atomic<nuance::IWakeupAudioIn*> mAudioIn{nullptr};
    std::atomic<bool> mListening{false};
    std::atomic<bool> mQuit{false};
    std::thread mAudio;
    std::thread mShots;
};

}  // namespace bench
