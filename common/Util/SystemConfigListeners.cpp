// SPDX-License-Identifier: Apache-2.0
#include <map>
#include <string>

#include "Util/ConnectionStateListener.h"
#include "Util/SystemConfig.h"
#include "Util/VConfKey.h"
#include "Util/VConfStateListener.h"

namespace Util {

namespace {

// Not a key of the settings store.
constexpr char CONNECTION_STATE[] = "ConnectionState";

template <auto getter>
SystemStateListener* watchText(SystemConfig& config, const char* key) {
    return new VConfStateListener(key, (config.*getter)());
}

template <auto getter>
SystemStateListener* watchInt(SystemConfig& config, const char* key) {
    return new VConfStateListener(key, static_cast<int>((config.*getter)()));
}

SystemStateListener* watchConnection(SystemConfig& config, const char*) {
    return new ConnectionStateListener(config.getConnectionState());
}

using Watch = SystemStateListener* (*)(SystemConfig& config, const char* key);

// Creates the listener for each registry key. All keys except the connection are keys of the settings store.
//
// The store holds the country as a string and the two switches as booleans, but their listeners start with the
// converted value, an int. Therefore the first notification is compared with an empty string or with false, not with
// the value that was stored before.
const std::map<std::string, Watch> WATCHED = {
    {VConfKey::WIDGET_LANG, watchText<&SystemConfig::getWidgetLangStr>},
    {CONNECTION_STATE, watchConnection},
    {VConfKey::MIC_STATE, watchInt<&SystemConfig::getMicState>},
    {VConfKey::COUNTRY, watchInt<&SystemConfig::getSystemCountry>},
    {VConfKey::WAKEUP_WORD, watchInt<&SystemConfig::getVoiceWakeupWord>},
    {VConfKey::LANG, watchInt<&SystemConfig::getOrvaneLang>},
    {VConfKey::VOICE_WAKEUP, watchInt<&SystemConfig::getVoiceWakeupState>},
    {VConfKey::VOICE_FEEDBACK, watchInt<&SystemConfig::getVoiceFeedbackState>},
};

}  // namespace

void SystemConfig::addListener(const char* key, const Callback& callback, void* userData) {
    SystemStateListener*& listener = mListeners[key];
    if (listener == nullptr) {
        listener = WATCHED.at(key)(*this, key);
    }
    listener->addCallback(callback, userData);
}

void SystemConfig::addWidgetLangStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::WIDGET_LANG, callback, userData);
}

void SystemConfig::addConnectionStateChangedListener(const Callback& callback, void* userData) {
    addListener(CONNECTION_STATE, callback, userData);
}

void SystemConfig::addMicStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::MIC_STATE, callback, userData);
}

void SystemConfig::addCountryStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::COUNTRY, callback, userData);
}

void SystemConfig::addVoiceWakeupWordChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::WAKEUP_WORD, callback, userData);
}

void SystemConfig::addLangStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::LANG, callback, userData);
}

void SystemConfig::addVoiceWakeupStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::VOICE_WAKEUP, callback, userData);
}

void SystemConfig::addVoiceFeedbackStateChangedListener(const Callback& callback, void* userData) {
    addListener(VConfKey::VOICE_FEEDBACK, callback, userData);
}

}  // namespace Util
