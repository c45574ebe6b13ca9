// SPDX-License-Identifier: Apache-2.0
// A sound server that hangs after it has reported a change.
#pragma once

#include <functional>
#include <future>

#include "audio/Playing.h"
#include "audio/SoundThread.h"
#include "process/Owner.h"
#include "room/SoundRoom.h"

// Makes the sound thread handle `change` while the server does not answer. Returns when the server answers again.
inline void standStillAfter(SoundRoom& room, const std::function<void()>& change) {
    std::promise<void> changed;
    std::promise<void> looked;
    process::shared<audio::SoundThread>().post([&] { changed.get_future().wait(); });
    change();
    // The server reports a change at the latest before its second answer.
    audio::whatPlays();
    audio::whatPlays();
    room.freeze();
    changed.set_value();
    process::shared<audio::SoundThread>().post([&] { looked.set_value(); });
    looked.get_future().wait();
    room.thaw();
}
