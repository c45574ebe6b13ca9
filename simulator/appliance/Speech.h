// SPDX-License-Identifier: Apache-2.0
// Text and other things as sound. All give the path of a WAV file, 16 kHz mono, and throw std::runtime_error.
#pragma once

#include <string>

#include "appliance/Folder.h"

namespace sim {

// With the quiet noise of a room under it. `voice` is one of flite's.
std::string speak(const Folder& folder, const std::string& text, const std::string& voice);
// That noise alone.
std::string silence(const Folder& folder, double seconds);
// A tone whose level moves by 6 dB every 16 ms, so that no two looks at it see the same.
std::string stairs(const Folder& folder, double seconds);

// Throws, with a text for the person who named it, when `path` is no file with sound in it.
void requireSound(const std::string& path);

}  // namespace sim
