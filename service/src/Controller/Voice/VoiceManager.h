// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "Util/Log.h"

namespace OrvaneDA {

class VoiceControl;

// Connects to the platform's voice-control settings and manager, and passes the callbacks to VoiceControl. Logs
// failures for the caller. Main loop only.
class VoiceManager {
public:
    explicit VoiceManager(VoiceControl& control) : mControl(control) {}
    VoiceManager(const VoiceManager&) = delete;
    VoiceManager& operator=(const VoiceManager&) = delete;

    // Stops at the first failure and returns false; `close` then closes whatever is open. When this returns true, the
    // engine is not yet ready.
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
