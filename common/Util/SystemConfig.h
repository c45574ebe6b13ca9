// The device's settings, as the service's own enumerations and texts, and the registry of their change listeners.
// Getters and setters may be called on any thread; registrations and the creation of the instance on the main loop
// only.
#pragma once

#include <net_connection.h>

#include <functional>
#include <map>
#include <string>

#include "Util/Languages.h"
#include "Util/Singleton.h"
#include "Util/SystemStateListener.h"

namespace Util {

// The wake-up word.
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
    // True when the device has left its first-start and demonstration states.
    bool isOutOfBoxing();

    OrvaneLang getOrvaneLang();
    void setOrvaneLang(OrvaneLang lang);
    std::string getLangStr();     // as "en_US"
    std::string getSHLLangStr();  // as "en-US"
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

    int getScreenSaverTimeout();  // as stored, -1 when unreadable
    int getLcdTimeout();          // as stored, -1 when unreadable
    void setLcdTimeout(int timeout);
    // Wakes the display and restarts its idle timing.
    void setScreenSaverReset();

    connection_type_e getConnectionState();

    // The callback comes on the main loop at each real change, until this object is destroyed.
    void addWidgetLangStateChangedListener(const Callback& callback, void* userData);
    void addConnectionStateChangedListener(const Callback& callback, void* userData);
    void addMicStateChangedListener(const Callback& callback, void* userData);
    void addCountryStateChangedListener(const Callback& callback, void* userData);
    void addVoiceWakeupWordChangedListener(const Callback& callback, void* userData);
    void addLangStateChangedListener(const Callback& callback, void* userData);
    void addVoiceWakeupStateChangedListener(const Callback& callback, void* userData);
    void addVoiceFeedbackStateChangedListener(const Callback& callback, void* userData);

private:
    void addListener(const std::string& key, const std::function<SystemStateListener*()>& create,
                     const Callback& callback, void* userData);

    std::map<std::string, SystemStateListener*> mListeners;  // owned
};

}  // namespace Util
