// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace audio {

// Has the focus watches told, on the sound thread, whenever somebody takes the recording focus or the last gives it up.
// The first call counts; without a session bus there is nothing to watch.
void watchRecordingFocus();

}  // namespace audio
