// SPDX-License-Identifier: Apache-2.0
#include "Util/SystemConfig.h"

#include <device.h>
#include <stdlib.h>
#include <vconf.h>

#include "Util/ConnectionStateListener.h"
#include "Util/Log.h"
#include "Util/Text.h"
#include "Util/VConfKey.h"

namespace Util {

namespace {

// A failed read leaves this value in the output, and only this value indicates a failure.
constexpr int UNREAD = -1;

int readInt(const char* key) {
    int value = UNREAD;
    vconf_get_int(key, &value);
    return value;
}

// The functions below log failures for the getter that calls them.
int readInt(const char* key, int otherwise, const Caller& caller = Caller::current()) {
    const int value = readInt(key);
    if (value == UNREAD) {
        LOGE_FOR(caller, "Vconf Read Fail : %s", key);
        return otherwise;
    }
    return value;
}

bool readBool(const char* key, bool otherwise, const Caller& caller = Caller::current()) {
    int value = UNREAD;
    vconf_get_bool(key, &value);
    if (value == UNREAD) {
        LOGE_FOR(caller, "Vconf Read Fail : %s", key);
        return otherwise;
    }
    return value != 0;
}

std::string readText(const char* key, const char* otherwise, const Caller& caller = Caller::current()) {
    const PlatformText text(vconf_get_str(key));
    if (text == nullptr) {
        LOGE_FOR(caller, "Vconf Read Fail : %s", key);
        return otherwise;
    }
    return text.get();
}

struct Named {
    const char* name;
    int code;
};

template <size_t N>
int codeOf(const std::string& name, const Named (&table)[N], int otherwise) {
    for (const Named& row : table) {
        if (name == row.name) {
            return row.code;
        }
    }
    return otherwise;
}

}  // namespace

SystemConfig::~SystemConfig() {
    for (auto& [key, listener] : mListeners) {
        delete listener;
    }
}

int SystemConfig::getMicState() {
    return readInt(VConfKey::MIC_STATE, 1);
}

void SystemConfig::setMicState(bool on) {
    vconf_set_int(VConfKey::MIC_STATE, on ? 1 : 0);
    device_touchkey_set_mic_led(on);
}

bool SystemConfig::isOutOfBoxing() {
    for (const char* key :
         {VConfKey::FACTORY_BOOT, VConfKey::SETUP_WIZARD, VConfKey::OTN_PROGRESS, VConfKey::DEMO_MODE}) {
        const int value = readInt(key);
        if (value == UNREAD) {
            LOGE("Vconf Read Fail : %s", key);
            return false;
        }
        if (value == 1) {
            return false;
        }
    }
    return true;
}

OrvaneLang SystemConfig::getOrvaneLang() {
    const int value = readInt(VConfKey::LANG);
    if (value == UNREAD) {
        LOGE("VConf Read Fail : %s", VConfKey::LANG);
        return OrvaneLang::EN_US;
    }
    return value >= 0 && value <= 7 ? static_cast<OrvaneLang>(value) : OrvaneLang::EN_US;
}

void SystemConfig::setOrvaneLang(OrvaneLang lang) {
    const int value = static_cast<int>(lang);
    vconf_set_int(VConfKey::LANG, value >= 0 && value <= 7 ? value : static_cast<int>(OrvaneLang::EN_US));
}

std::string SystemConfig::getLangStr() {
    return languageOf(getOrvaneLang()).locale;
}

std::string SystemConfig::getSHLLangStr() {
    return getLangStr().replace(2, 1, "-");
}

std::string SystemConfig::getWidgetLangStr() {
    const std::string locale = readText(VConfKey::WIDGET_LANG, "en_US.UTF-8");
    return locale.substr(0, locale.find('.'));
}

int SystemConfig::getSystemCountry() {
    static constexpr Named COUNTRIES[] = {
        {"KR", Country::KR}, {"US", Country::US}, {"CN", Country::CN}, {"GB", Country::GB}, {"DE", Country::DE},
        {"FR", Country::FR}, {"IT", Country::IT}, {"CH", Country::CH}, {"BR", Country::BR}, {"AU", Country::AU},
        {"NZ", Country::NZ}, {"ZA", Country::ZA}, {"EU", Country::EU}, {"NO", Country::NO}, {"SE", Country::SE}};
    return codeOf(readText(VConfKey::COUNTRY, "US"), COUNTRIES, Country::OTHER);
}

int SystemConfig::getSystemRegion() {
    static constexpr Named REGIONS[] = {{"KR", Region::KR}, {"US", Region::US}, {"EU", Region::EU}, {"AU", Region::AU}};
    return codeOf(readText(VConfKey::REGION, "US"), REGIONS, Region::OTHER);
}

bool SystemConfig::getVoiceFeedbackState() {
    return readBool(VConfKey::VOICE_FEEDBACK, true);
}

void SystemConfig::setVoiceFeedbackState(bool on) {
    LOGD("setVoiceFeedbackState to : %d", on);
    vconf_set_bool(VConfKey::VOICE_FEEDBACK, on);
}

bool SystemConfig::getVoiceWakeupState() {
    return readBool(VConfKey::VOICE_WAKEUP, true);
}

void SystemConfig::setVoiceWakeupState(bool on) {
    LOGD("setVoiceWakeupState to : %d", on);
    vconf_set_bool(VConfKey::VOICE_WAKEUP, on);
}

bool SystemConfig::getVoiceResponseState() {
    return readBool(VConfKey::VOICE_RESPONSE, false);
}

void SystemConfig::setVoiceResponseState(bool on) {
    LOGD("setVoiceResponseState to : %d", on);
    vconf_set_bool(VConfKey::VOICE_RESPONSE, on);
}

bool SystemConfig::getVoiceBOSResponseState() {
    return readBool(VConfKey::VOICE_BOS_RESPONSE, false);
}

void SystemConfig::setVoiceBOSResponseState(bool on) {
    LOGD("setVoiceBOSResponseState to : %d", on);
    vconf_set_bool(VConfKey::VOICE_BOS_RESPONSE, on);
}

OrvaneWUW SystemConfig::getVoiceWakeupWord() {
    return readInt(VConfKey::WAKEUP_WORD, 0) == 1 ? OrvaneWUW::VEXAL : OrvaneWUW::QUORBIT;
}

void SystemConfig::setVoiceWakeupWord(OrvaneWUW word) {
    vconf_set_int(VConfKey::WAKEUP_WORD, word != OrvaneWUW::QUORBIT ? 1 : 0);
}

int SystemConfig::getScreenSaverTimeout() {
    return readInt(VConfKey::SCREEN_SAVER_TIMEOUT);
}

int SystemConfig::getLcdTimeout() {
    return readInt(VConfKey::LCD_TIMEOUT);
}

void SystemConfig::setLcdTimeout(int timeout) {
    if (timeout >= 1) {
        vconf_set_int(VConfKey::LCD_TIMEOUT, timeout);
    }
}

void SystemConfig::setScreenSaverReset() {
    // Power management treats any new value as an external event.
    vconf_set_int(VConfKey::PM_EXTERNAL_EVENT, rand() % 100);
    display_change_state(DISPLAY_STATE_NORMAL);
}

connection_type_e SystemConfig::getConnectionState() {
    connection_type_e type = CONNECTION_TYPE_DISCONNECTED;
    connection_h handle = ConnectionStateListener::mInitializer.getHandle();
    if (handle == nullptr) {
        return type;
    }
    const int result = connection_get_type(handle, &type);
    if (result != CONNECTION_ERROR_NONE) {
        LOGE("Could not get net connection state: %d", result);
        type = CONNECTION_TYPE_DISCONNECTED;
    }
    LOGD("net connection state: %d", type);
    return type;
}

}  // namespace Util
