// SPDX-License-Identifier: Apache-2.0
// The appliance's settings, as the service's enumerations and strings, and the registry of their change listeners. Any
// thread may call getters and setters. Only the main loop may create the instance and register listeners.
#pragma once

#include <net_connection.h>

#include <map>
#include <string>

#include "Util/Languages.h"
#include "Util/Singleton.h"
#include "Util/SystemStateListener.h"

namespace Util {

// The wake word.
enum class OrvaneWUW : int { QUORBIT = 0, VEXAL = 1 };

namespace Country {
enum Code { KR, US, CN, GB, DE, FR, IT, CH, BR, AU, NZ, ZA, EU, NO, SE, OTHER };
}

namespace Region {
enum Code { KR, US, EU, AU, OTHER };
}

class SystemConfig {
public:
    using Callback = SystemStateListener::Callback;

    SystemConfig() = default;
    virtual ~SystemConfig();
    SystemConfig(const SystemConfig&) = delete;
    SystemConfig& operator=(const SystemConfig&) = delete;

    int getMicState();  // 0 off, 1 on
    void setMicState(bool on);
    // True if the appliance is in neither its first-start nor its demonstration state.
    bool isOutOfBoxing();

    OrvaneLang getOrvaneLang();
    void setOrvaneLang(OrvaneLang lang);
    std::string getLangStr();     // such as "en_US"
    std::string getSHLLangStr();  // such as "en-US"
    std::string getWidgetLangStr();
    int getSystemCountry();  // Country::Code
    int getSystemRegion();   // Region::Code

    bool getVoiceFeedbackState();
    void setVoiceFeedbackState(bool on);
    bool getVoiceWakeupState();
    void setVoiceWakeupState(bool on);
    bool getVoiceResponseState();
    void setVoiceResponseState(bool on);
    bool getVoiceBOSResponseState();
    void setVoiceBOSResponseState(bool on);
    OrvaneWUW getVoiceWakeupWord();
    void setVoiceWakeupWord(OrvaneWUW word);

    int getScreenSaverTimeout();  // as stored; -1 on failure
    int getLcdTimeout();          // as stored; -1 on failure
    void setLcdTimeout(int timeout);
    // Wakes the display and restarts its idle time.
    void setScreenSaverReset();

    connection_type_e getConnectionState();

    // The callback runs on the main loop whenever the value has changed, until this object is destroyed.
    void addWidgetLangStateChangedListener(const Callback& callback, void* userData);
    void addConnectionStateChangedListener(const Callback& callback, void* userData);
    void addMicStateChangedListener(const Callback& callback, void* userData);
    void addCountryStateChangedListener(const Callback& callback, void* userData);
    void addVoiceWakeupWordChangedListener(const Callback& callback, void* userData);
    void addLangStateChangedListener(const Callback& callback, void* userData);
    void addVoiceWakeupStateChangedListener(const Callback& callback, void* userData);
    void addVoiceFeedbackStateChangedListener(const Callback& callback, void* userData);

private:
    void addListener(const char* key, const Callback& callback, void* userData);

    std::map<std::string, SystemStateListener*> mListeners;  // owned
};

// The process's instance.
inline SystemConfig& systemConfig() {
    return *Singleton<SystemConfig>::getInstance();
}

}  // namespace Util
