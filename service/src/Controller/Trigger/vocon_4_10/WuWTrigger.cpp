// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WuWTrigger.h"

#include <tzplatform_config.h>

#include <map>

#include "Controller/Trigger/vocon_4_10/WakeupAudioIn.h"
#include "Util/AsyncThread.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/Singleton.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

namespace {

constexpr int FORCED_LEVEL = -1;

const char* wakeupWordKey(Util::OrvaneWUW word) {
    switch (static_cast<int>(word)) {
        case 0:
            return "wakeup_quorbit";
        case 1:
            return "wakeup_vexal";
        default:
            return "";
    }
}

}  // namespace

WuWTrigger::WuWTrigger() {
    LOGI("");
    mEngine = nuance::IWakeupCtx::Create();
    mEngine->AttachListener(this);
    auto* config = Util::Singleton<Util::SystemConfig>::getInstance();
    const Util::OrvaneLang language = config->getOrvaneLang();
    const std::string path = getConfigPath(language, config->getVoiceWakeupWord());
    if (!mEngine->Initialize(path, Constants::File::WAKEUP_CONFIG)) {
        LOGE("Initialize error");
        return;
    }
    mAudioIn = std::make_unique<WakeupAudioIn>();
    mEngine->AttachAudioIn(mAudioIn.get());
}

WuWTrigger::~WuWTrigger() {
    LOGI("");
    {
        std::lock_guard<std::mutex> lock(mLife->mutex);
        mLife->ended = true;
    }
    __cancelListening();
    // The feed is emptied now; its memory stays until the engine's thread, which may still ask it, has ended.
    if (mAudioIn != nullptr) {
        mAudioIn->setEnabled(false);
        mAudioIn->clearQueue();
    }
    nuance::IWakeupCtx::Destroy(mEngine);
}

std::string WuWTrigger::getConfigPath(Util::OrvaneLang language, Util::OrvaneWUW word) {
    const char* root = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, Constants::File::WAKEUP_DATA);
    return std::string(root ? root : "") + Util::languageOf(language).wakeupFolder + "/" + wakeupWordKey(word) + "/";
}

void WuWTrigger::start() {
    std::lock_guard<std::mutex> lock(mStateMutex);
    mEnabled = 1;
    __startListening();
}

void WuWTrigger::stop() {
    std::lock_guard<std::mutex> lock(mStateMutex);
    mEnabled = 0;
    __cancelListening();
}

void WuWTrigger::__startListening() {
    LOGI("");
    if (mEngine->IsListening()) {
        return;
    }
    mEngine->StartListening();
    if (mAudioIn != nullptr) {
        mAudioIn->setEnabled(true);
    }
}

void WuWTrigger::__cancelListening() {
    LOGI("");
    if (!mEngine->IsListening()) {
        return;
    }
    if (mAudioIn != nullptr) {
        mAudioIn->setEnabled(false);
    }
    mEngine->CancelListening();
}

// Off the caller's thread: the callback launches an application, which the engine's thread must not wait for.
template <typename Shoot>
void WuWTrigger::queueShot(Shoot shoot) {
    Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall([life = mLife, shoot] {
        std::lock_guard<std::mutex> lock(life->mutex);
        if (!life->ended) {
            shoot();
        }
        return false;
    });
}

void WuWTrigger::forceShot() {
    stop();
    queueShot([this] {
        if (mCallback) {
            mCallback(FORCED_LEVEL);
        }
    });
}

void WuWTrigger::_shot(int level) {
    if (mCallback) {
        mCallback(level);
    }
}

void WuWTrigger::OnWakeup(const std::string& word, int level) {
    LOGD("Wakeup! wuw: %s,  confidential level = %d", word.c_str(), level);
    if (mAudioIn != nullptr && mAudioIn->isEnabled()) {
        mAudioIn->setEnabled(false);
    }
    mEnabled = 0;
    queueShot([this, level] { _shot(level); });
}

void WuWTrigger::OnCanceled() {
    LOGD("Canced");
}

void WuWTrigger::OnError(nuance::IWakeupListener::Error code, const std::string& detail) {
    LOGE("Error");
    LOGE("======================================");
    LOGE(" Error occurred during recognition! ");
    LOGE("  - code   : (%s)", getErrorCode(code).c_str());
    LOGE("  - detail : %s", detail.c_str());
    LOGE("====================================");
}

void WuWTrigger::OnWarning(nuance::IWakeupListener::Warning code, const std::string& detail) {
    LOGW("Warning");
    LOGW("======================================");
    LOGW(" Warning occurred during recognition! ");
    LOGW("  - code   : (%s)", getWarningCode(code).c_str());
    LOGW("  - detail : %s", detail.c_str());
    LOGW("====================================");
}

SRecordListener* WuWTrigger::getSRecordListener() {
    return mAudioIn.get();
}

const std::string& WuWTrigger::getErrorCode(nuance::IWakeupListener::Error code) {
    static const std::map<int, std::string> NAMES = {{0, "NOT_ENOUGH_RESOURCE"},      {1, "NOT_IN_PROPER_STATE"},
                                                     {2, "INVALID_ARGUMENT"},         {3, "WRONG_VOCON_DATA"},
                                                     {4, "ERROR_FROM_USER_CALLBACK"}, {5, "NOT_SUPPORTED"},
                                                     {6, "VOCON_INTERNAL_ERROR"},     {7, "COULD_NOT_FIND_ACMOD"},
                                                     {8, "COULD_NOT_FIND_CLC"},       {9, "ERROR_FROM_CONFIG_PARSER"}};
    return NAMES.at(code);
}

const std::string& WuWTrigger::getWarningCode(nuance::IWakeupListener::Warning code) {
    static const std::map<int, std::string> NAMES = {{0, "NOT_INITIALIZED"},          {1, "ALREADY_LISTENING"},
                                                     {2, "FAIL_TO_CREATE_DIRECTORY"}, {3, "AUDIOIN_NOT_ATTACHED"},
                                                     {4, "WAKEUP_WORD_NOT_SET"},      {5, "FILE_OPEN_FAILED"},
                                                     {6, "INVALID_CONFIG_KEY"},       {7, "INVALID_CONFIG_VALUE"}};
    return NAMES.at(code);
}

}  // namespace OrvaneDA
