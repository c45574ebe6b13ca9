// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "audio/Registration.h"
#include "sound_manager.h"

namespace audio {

// The callbacks for volume changes and the levels last reported to them. Shared by the process.
class VolumeListeners {
public:
    VolumeListeners();

    // Any thread. Waits for the server, so that no later change is missed. Adding a registered pair again has no
    // effect.
    void add(sound_manager_volume_changed_cb callback, void* data);
    // False if the pair is not registered.
    bool remove(sound_manager_volume_changed_cb callback, void* data);

private:
    struct Listener {
        sound_manager_volume_changed_cb callback = nullptr;
        void* data = nullptr;
        Registration registration;
    };
    using Listeners = std::vector<std::shared_ptr<Listener>>;

    Listeners::iterator find(sound_manager_volume_changed_cb callback, void* data);
    void learn();
    bool check();
    Listeners update(sound_type_e type, int level);

    std::mutex mMutex;
    Listeners mListeners;
    std::map<sound_type_e, int> mKnown;
};

}  // namespace audio
