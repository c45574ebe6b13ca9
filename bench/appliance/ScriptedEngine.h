// SPDX-License-Identifier: Apache-2.0
// A wake engine that the benchmark commands, so that the moment of each detection is known.
//   $BENCH_ENGINE_TAKES_AUDIO yes  its thread fetches every block and discards it
//   $BENCH_ENGINE_DETECTIONS       a pipe; each byte is a wake-word detection while the engine listens. It is recorded
//                                  as the event "detection" with the time of the call as "called".
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
    void takeDetections(const std::string& pipe);
    void callOnce();

    std::atomic<nuance::IWakeupListener*> mListener{nullptr};
    std::atomic<nuance::IWakeupAudioIn*> mAudioIn{nullptr};
    std::atomic<bool> mListening{false};
    std::atomic<bool> mQuit{false};
    std::thread mAudio;
    std::thread mDetections;
};

}  // namespace bench
