// SPDX-License-Identifier: Apache-2.0
// The wake engine's interface to the product. Owns the configuration, the reporter, and the thread.
#pragma once

#include <string>

#include "EngineThread.h"
#include "Reporter.h"
#include "Spotters.h"
#include "process/Owner.h"
#include "status/Problems.h"
#include "wakeup_engine.h"

namespace wakeup {

class WakeupContext final : public nuance::IWakeupCtx {
public:
    explicit WakeupContext(SpotterFactory makeSpotter);
    ~WakeupContext() override = default;

    bool Initialize(const std::string& configDirectory, const std::string& configFile) override;
    void AttachListener(nuance::IWakeupListener* listener) override;
    void AttachAudioIn(nuance::IWakeupAudioIn* audioIn) override;
    bool IsListening() override;
    void StartListening() override;
    void CancelListening() override;

private:
    std::shared_ptr<Spotter> load(const std::string& path);
    void fail(nuance::IWakeupListener::Error code, const std::string& detail);
    void showProblem(const std::string& problem);  // empty: none

    const SpotterFactory mMakeSpotter;
    status::Problems& mProblems = process::shared<status::Problems>();
    Reporter mReporter;
    EngineThread mThread{mReporter};
};

}  // namespace wakeup
