// SPDX-License-Identifier: Apache-2.0
// Who wants to know of volume changes, and the levels that they know.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "audio/Registration.h"
#include "sound_manager.h"

namespace audio {

class VolumeListeners {
public:
    // Lives until the process ends.
    static VolumeListeners& get();

    // Any thread. Waits for the server, so that no change after it is missed. A pair that is there already stays once.
    void add(sound_manager_volume_changed_cb callback, void* data);
    // False when there is no such pair.
    bool remove(sound_manager_volume_changed_cb callback, void* data);

private:
    struct Listener {
        sound_manager_volume_changed_cb callback;
        void* data;
        Registration registration;
    };
    using Listeners = std::vector<std::shared_ptr<Listener>>;

    VolumeListeners();
    Listeners::iterator find(sound_manager_volume_changed_cb callback, void* data);
    void learn();
    bool look();
    Listeners toldOf(sound_type_e type, int level);

    std::mutex mMutex;
    Listeners mListeners;
    std::map<sound_type_e, int> mKnown;
};

}  // namespace audio
