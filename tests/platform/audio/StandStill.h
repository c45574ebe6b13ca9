// SPDX-License-Identifier: Apache-2.0
// A sound server that stands still just when it has told of a change.
#pragma once

#include <functional>
#include <future>

#include "audio/Playing.h"
#include "audio/SoundThread.h"
#include "process/Owner.h"
#include "room/SoundRoom.h"

// What `change` changes is looked at, on the sound thread, while the server does not answer. Returns when it answers
// again.
inline void standStillAfter(SoundRoom& room, const std::function<void()>& change) {
    std::promise<void> changed;
    std::promise<void> looked;
    process::shared<audio::SoundThread>().post([&] { changed.get_future().wait(); });
    change();
    // The server tells of a change no later than with its second answer after it.
    audio::whatPlays();
    audio::whatPlays();
    room.freeze();
    changed.set_value();
    process::shared<audio::SoundThread>().post([&] { looked.set_value(); });
    looked.get_future().wait();
    room.thaw();
}
