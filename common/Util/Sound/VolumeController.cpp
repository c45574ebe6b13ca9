// SPDX-License-Identifier: Apache-2.0
#include "Util/Sound/VolumeController.h"

#include "Util/Log.h"

namespace Util {

namespace {

constexpr int UNMUTE_LEVEL = 7;

sound_type_e soundTypeOf(MediaType type) {
    switch (type) {
        case MediaType::SYSTEM:
            return SOUND_TYPE_SYSTEM;
        case MediaType::NOTIFICATION:
            return SOUND_TYPE_NOTIFICATION;
        case MediaType::ALARM:
            return SOUND_TYPE_ALARM;
        default:
            return SOUND_TYPE_MEDIA;
    }
}

const char* nameOf(MediaType type) {
    switch (type) {
        case MediaType::SYSTEM:
            return "SOUND_TYPE_SYSTEM";
        case MediaType::NOTIFICATION:
            return "SOUND_TYPE_NOTIFICATION";
        case MediaType::ALARM:
            return "SOUND_TYPE_ALARM";
        case MediaType::MEDIA:
            return "SOUND_TYPE_MEDIA";
        default:
            return "UNKNOWN";
    }
}

}  // namespace

VolumeController::VolumeController(MediaType mediaType) : mMediaType(mediaType) {
    sound_manager_set_volume_changed_cb(_volume_changed_cb, this);
    const int level = getVolume();
    mVolume = level;
    mLastVolume = level;
}

VolumeController::~VolumeController() {
    sound_manager_unset_volume_changed_cb(_volume_changed_cb, this);
    if (mFaderThread != nullptr && mFaderThread->joinable()) {
        mFaderThread->join();
    }
}

int VolumeController::getRealVolume() {
    int level = -1;
    const int result = sound_manager_get_volume(soundTypeOf(mMediaType), &level);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to get media volume");
        return -1;
    }
    LOGD("get volume %d type(%s)", level, nameOf(mMediaType));
    return level;
}

int VolumeController::setRealVolume(int v) {
    LOGD("set volume %d type(%s)", v, nameOf(mMediaType));
    const int result = sound_manager_set_volume(soundTypeOf(mMediaType), v);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to set media volume");
    }
    return result;
}

int VolumeController::getVolume() {
    std::lock_guard<std::mutex> lock(mMutex);
    return mFading ? mVolume.load() : getRealVolume();
}

int VolumeController::setVolume(int v) {
    std::lock_guard<std::mutex> lock(mMutex);
    if (v < 0) {
        return -1;
    }
    if (mFading) {
        mVolume = v;
        return 0;
    }
    return setRealVolume(v);
}

int VolumeController::VolumeUp() {
    const int current = getVolume();
    return current < 0 ? -1 : setVolume(current + 1);
}

int VolumeController::VolumeDown() {
    const int current = getVolume();
    return current < 0 ? -1 : setVolume(current - 1);
}

int VolumeController::mute() {
    return setVolume(0);
}

int VolumeController::unmute() {
    if (getVolume() > 0) {
        return -1;
    }
    return setVolume(mLastVolume < 1 ? UNMUTE_LEVEL : mLastVolume.load());
}

int VolumeController::addSync(VolumeController* other) {
    {
        std::lock_guard<std::mutex> lock(mSyncMutex);
        mSyncList.push_back(other);
    }
    return other->setVolume(getVolume());
}

void VolumeController::setDecreaseCallback(const std::function<void(void*)>& callback, void* userData) {
    std::lock_guard<std::mutex> lock(mSyncMutex);
    mDecreaseCallback = std::make_unique<DecreaseCallback>(DecreaseCallback{callback, userData});
}

void VolumeController::_volume_changed_cb(sound_type_e type, unsigned int level, void* data) noexcept {
    auto* self = static_cast<VolumeController*>(data);
    if (type != soundTypeOf(self->mMediaType)) {
        return;
    }
    if (!self->mFading) {
        std::vector<VolumeController*> followers;
        {
            std::lock_guard<std::mutex> lock(self->mSyncMutex);
            followers = self->mSyncList;
        }
        for (VolumeController* follower : followers) {
            follower->setVolume(static_cast<int>(level));
        }
        self->mVolume = static_cast<int>(level);
        if (level != 0) {
            self->mLastVolume = static_cast<int>(level);
        }
    }
    LOGD("volume %d type(%s)", static_cast<int>(level), nameOf(self->mMediaType));
}

}  // namespace Util
