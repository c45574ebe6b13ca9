// SPDX-License-Identifier: Apache-2.0
// Listens for the wake-up word. start, stop and forceShot come from the service's thread or the async worker; the
// engine calls the listener on its own thread; the callback runs on the process-wide async worker, never on the
// engine's thread.
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
    // Sets the engine up for the current language and wake-up word; on failure the trigger stays without audio.
    WuWTrigger();
    // Waits for the engine's thread and for a callback that now runs.
    ~WuWTrigger() override;

    void start() override;
    void stop() override;
    void forceShot() override;
    // Unlike the base, does not look at the enabled flag: a wake-up has cleared it by then.
    void _shot(int level) override;

    void OnWakeup(const std::string& word, int level) override;
    void OnCanceled() override;
    void OnError(nuance::IWakeupListener::Error code, const std::string& detail) override;
    void OnWarning(nuance::IWakeupListener::Warning code, const std::string& detail) override;

    // For the recorder; null when the engine could not be set up. Stays this trigger's.
    SRecordListener* getSRecordListener();

    // Throw std::out_of_range for a code that has no name.
    static const std::string& getErrorCode(nuance::IWakeupListener::Error code);
    static const std::string& getWarningCode(nuance::IWakeupListener::Warning code);
    // Folder of the engine's data, with a closing "/".
    static std::string getConfigPath(Util::OrvaneLang language, Util::OrvaneWUW word);

private:
    // Outlives the trigger in the jobs that it queued, so that one that comes too late does nothing.
    struct Life {
        std::mutex mutex;  // held while a job runs
        bool ended = false;
    };

    void __startListening();
    void __cancelListening();
    template <typename Shoot>
    void queueShot(Shoot shoot);

    std::mutex mStateMutex;  // a start or a stop: engine and feed change together
    std::shared_ptr<Life> mLife = std::make_shared<Life>();
    nuance::IWakeupCtx* mEngine = nullptr;
    std::unique_ptr<WakeupAudioIn> mAudioIn;
};

}  // namespace OrvaneDA
