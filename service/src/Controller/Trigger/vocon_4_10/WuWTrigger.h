// SPDX-License-Identifier: Apache-2.0
// Listens for the wake word ("wake-up word", hence WuW). The main loop and the async worker call start, stop, and
// forceShot. The engine calls the listener on its own thread. The callback runs on the process-wide async worker, never
// on the engine's thread.
#pragma once

#include <wakeup_engine.h>

#include <memory>
#include <mutex>
#include <string>

#include "Controller/Trigger/vocon_4_10/Trigger.h"

namespace Util {
enum class OrvaneLang : int;
enum class OrvaneWUW : int;
}  // namespace Util

namespace OrvaneDA {

class SRecordListener;
class WakeupAudioIn;

class WuWTrigger : public Trigger, private nuance::IWakeupListener {
public:
    // Initializes the engine for the current language and wake word. On failure, the trigger has no feed.
    WuWTrigger();
    // Waits for the engine's thread, but not for a running callback.
    ~WuWTrigger() override;

    void start() override;
    void stop() override;
    void forceShot() override;
    // Unlike the base class, does not check the enabled flag, because a detection has already cleared it.
    void _shot(int level) override;

    void OnWakeup(const std::string& word, int level) override;
    void OnCanceled() override;
    void OnError(nuance::IWakeupListener::Error code, const std::string& detail) override;
    void OnWarning(nuance::IWakeupListener::Warning code, const std::string& detail) override;

    // The feed, for the recorder; null if the engine could not be initialized. The trigger keeps ownership.
    SRecordListener* getSRecordListener();

    // Throw std::out_of_range for a code without a name.
    static const std::string& getErrorCode(nuance::IWakeupListener::Error code);
    static const std::string& getWarningCode(nuance::IWakeupListener::Warning code);
    // The directory of the engine's data, with a trailing "/".
    static std::string getConfigPath(Util::OrvaneLang language, Util::OrvaneWUW word);

private:
    // Shared with the queued jobs, which may outlive the trigger and then do nothing.
    struct Life {
        std::mutex mutex;  // held while a job uses the trigger
        bool ended = false;
    };
    using Lock = std::unique_lock<std::mutex>;
    struct DestroyEngine {
        void operator()(nuance::IWakeupCtx* engine) const noexcept;
    };

    void __startListening();
    void __cancelListening();
    template <typename Shoot>
    void queueShot(Shoot shoot);
    void callBack(int level, Lock* lock) const;

    std::mutex mStateMutex;  // held by start and stop, which change the engine and the feed together
    std::shared_ptr<Life> mLife = std::make_shared<Life>();
    Lock* mShotLock = nullptr;  // the lock of the job that calls _shot; _shot unlocks it
    std::unique_ptr<WakeupAudioIn> mAudioIn;
    std::unique_ptr<nuance::IWakeupCtx, DestroyEngine> mEngine;
};

}  // namespace OrvaneDA
