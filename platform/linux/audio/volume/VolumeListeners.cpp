// SPDX-License-Identifier: Apache-2.0
#include "VolumeListeners.h"

#include <algorithm>

#include "Levels.h"
#include "audio/SoundEvents.h"
#include "process/Owner.h"

namespace audio {

VolumeListeners::VolumeListeners() {
    process::shared<SoundEvents>().onVolume([this] { return check(); });
}

VolumeListeners::Listeners::iterator VolumeListeners::find(sound_manager_volume_changed_cb callback, void* data) {
    return std::find_if(mListeners.begin(), mListeners.end(),
                        [&](const auto& each) { return each->callback == callback && each->data == data; });
}

void VolumeListeners::add(sound_manager_volume_changed_cb callback, void* data) {
    learn();
    const std::lock_guard lock(mMutex);
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
        const std::lock_guard lock(mMutex);
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

// Reads only levels that are still unknown. For the others, check() reads the level and reports a change.
void VolumeListeners::learn() {
    for (const sound_type_e type : kSoundTypes) {
        {
            const std::lock_guard lock(mMutex);
            if (mKnown.count(type) != 0) {
                continue;
            }
        }
        if (const auto level = readLevel(type)) {
            const std::lock_guard lock(mMutex);
            mKnown.emplace(type, *level);
        }
    }
}

// Returns the listeners to call. For a listener that was added without a server, the first known level also counts as a
// change.
VolumeListeners::Listeners VolumeListeners::update(sound_type_e type, int level) {
    const std::lock_guard lock(mMutex);
    const auto known = mKnown.find(type);
    const bool same = known != mKnown.end() && known->second == level;
    mKnown[type] = level;
    return same ? Listeners() : mListeners;
}

bool VolumeListeners::check() {
    for (const sound_type_e type : kSoundTypes) {
        bool late = false;
        const auto level = readLevel(type, &late);
        if (late) {
            return false;
        }
        if (!level) {
            continue;
        }
        for (const auto& each : update(type, *level)) {
            each->registration.call([&] { each->callback(type, static_cast<unsigned>(*level), each->data); });
        }
    }
    return true;
}

}  // namespace audio
