// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WuWTrigger.h"

#include <tzplatform_config.h>

#include <utility>

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
    mEngine.reset(nuance::IWakeupCtx::Create());
    mEngine->AttachListener(this);
    Util::SystemConfig& config = Util::systemConfig();
    const Util::OrvaneLang language = config.getOrvaneLang();
    const std::string path = getConfigPath(language, config.getVoiceWakeupWord());
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
    // The feed must outlive the engine, because the engine's thread may still call it.
    if (mAudioIn != nullptr) {
        mAudioIn->setEnabled(false);
        mAudioIn->clearQueue();
    }
    mEngine.reset();
}

void WuWTrigger::DestroyEngine::operator()(nuance::IWakeupCtx* engine) const noexcept {
    nuance::IWakeupCtx::Destroy(engine);
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

// `shoot` receives the lock that keeps the trigger alive. Once it unlocks, the trigger may be destroyed.
template <typename Shoot>
void WuWTrigger::queueShot(Shoot shoot) {
    Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall([life = mLife, shoot] {
        Lock lock(life->mutex);
        if (!life->ended) {
            shoot(lock);
        }
        return false;
    });
}

// The callback launches an application. Neither the engine's thread, nor the caller of forceShot, nor the destructor
// may wait for that, so this function must not use the trigger after it has copied the callback.
void WuWTrigger::callBack(int level, Lock* lock) const {
    const auto callback = mCallback;
    if (lock != nullptr) {
        lock->unlock();
    }
    if (callback) {
        callback(level);
    }
}

void WuWTrigger::forceShot() {
    stop();
    queueShot([this](Lock& lock) { callBack(FORCED_LEVEL, &lock); });
}

void WuWTrigger::_shot(int level) {
    callBack(level, std::exchange(mShotLock, nullptr));
}

void WuWTrigger::OnWakeup(const std::string& word, int level) {
    LOGD("Wakeup! wuw: %s,  confidential level = %d", word.c_str(), level);
    if (mAudioIn != nullptr && mAudioIn->isEnabled()) {
        mAudioIn->setEnabled(false);
    }
    mEnabled = 0;
    queueShot([this, level](Lock& lock) {
        mShotLock = &lock;
        _shot(level);
        if (lock) {  // a subclass has overridden _shot
            mShotLock = nullptr;
        }
    });
}

SRecordListener* WuWTrigger::getSRecordListener() {
    return mAudioIn.get();
}

}  // namespace OrvaneDA
