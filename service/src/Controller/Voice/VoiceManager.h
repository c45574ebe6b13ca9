// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "Util/Log.h"

namespace OrvaneDA {

class VoiceControl;

// The connection to the platform's voice-control settings and manager, whose callbacks go to VoiceControl. Failures are
// logged for the caller. Main loop only.
class VoiceManager {
public:
    explicit VoiceManager(VoiceControl& control) : mControl(control) {}
    VoiceManager(const VoiceManager&) = delete;
    VoiceManager& operator=(const VoiceManager&) = delete;

    // Stops at the first failure and returns false; `close` closes what is open by then. The engine is not ready yet
    // when it returns true.
    bool open(const Util::Caller& caller = Util::Caller::current());
    void close(const Util::Caller& caller = Util::Caller::current());

    bool supports(const std::string& language) const;

private:
    bool openSettings(const Util::Caller& caller);
    bool setLanguageOfSettings(const Util::Caller& caller);
    bool setCallbacks(const Util::Caller& caller);

    VoiceControl& mControl;
    std::vector<std::string> mSupportedLanguages;
};

}  // namespace OrvaneDA
