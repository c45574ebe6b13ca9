// SPDX-License-Identifier: Apache-2.0
#include "VolumeListeners.h"

#include <algorithm>

#include "Levels.h"
#include "audio/SoundEvents.h"

namespace audio {

VolumeListeners& VolumeListeners::get() {
    // Never destroyed: the sound thread may still look while the process ends.
    static VolumeListeners* instance = new VolumeListeners;
    return *instance;
}

VolumeListeners::VolumeListeners() {
    SoundEvents::get().volumes([this] { return look(); });
}

VolumeListeners::Listeners::iterator VolumeListeners::find(sound_manager_volume_changed_cb callback, void* data) {
    return std::find_if(mListeners.begin(), mListeners.end(),
                        [&](const auto& each) { return each->callback == callback && each->data == data; });
}

void VolumeListeners::add(sound_manager_volume_changed_cb callback, void* data) {
    learn();
    std::lock_guard lock(mMutex);
    if (find(callback, data) == mListeners.end()) {
        auto listener = std::make_shared<Listener>();
        listener->callback = callback;
        listener->data = data;
        mListeners.push_back(std::move(listener));
    }
}

bool VolumeListeners::remove(sound_manager_volume_changed_cb callback, void* data) {
    std::shared_ptr<Listener> listener;
    {
        std::lock_guard lock(mMutex);
        const auto found = find(callback, data);
        if (found == mListeners.end()) {
            return false;
        }
        listener = *found;
        mListeners.erase(found);
    }
    listener->registration.end();
    return true;
}

// What is known already is left to look(), which tells of changes.
void VolumeListeners::learn() {
    for (const sound_type_e type : kSoundTypes) {
        {
            std::lock_guard lock(mMutex);
            if (mKnown.count(type) != 0) {
                continue;
            }
        }
        if (const auto level = readLevel(type)) {
            std::lock_guard lock(mMutex);
            mKnown.emplace(type, *level);
        }
    }
}

// What becomes known is a change too, for those who have registered without a server.
VolumeListeners::Listeners VolumeListeners::toldOf(sound_type_e type, int level) {
    std::lock_guard lock(mMutex);
    const auto known = mKnown.find(type);
    const bool same = known != mKnown.end() && known->second == level;
    mKnown[type] = level;
    return same ? Listeners() : mListeners;
}

bool VolumeListeners::look() {
    for (const sound_type_e type : kSoundTypes) {
        bool late = false;
        const auto level = readLevel(type, &late);
        if (late) {
            return false;
        }
        if (!level) {
            continue;
        }
        for (const auto& each : toldOf(type, *level)) {
            each->registration.call([&] { each->callback(type, static_cast<unsigned>(*level), each->data); });
        }
    }
    return true;
}

}  // namespace audio
