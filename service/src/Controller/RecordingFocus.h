// SPDX-License-Identifier: Apache-2.0
// The recording focus of a stream. Logs failures for the caller, with the platform's code.
#pragma once

#include <sound_manager.h>

#include "Util/Log.h"

namespace OrvaneDA {

// Returns false if the state cannot be read.
bool holdsRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller = Util::Caller::current());
// Returns whether the focus was acquired.
bool acquireRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller = Util::Caller::current());
void releaseRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller = Util::Caller::current());

}  // namespace OrvaneDA
