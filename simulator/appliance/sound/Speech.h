// SPDX-License-Identifier: Apache-2.0
// WAV files, 16 kHz mono. All functions throw std::runtime_error.
#pragma once

#include <string>

#include "appliance/environment/Folder.h"

namespace sim {

// Each of these writes a file and returns its path.
// Speech by flite, over the faint noise of a room. `voice` is one of flite's voices.
std::string speak(const Folder& folder, const std::string& text, const std::string& voice);
// The noise alone.
std::string silence(const Folder& folder, double seconds);
// A tone whose level changes by 6 dB every 16 ms, so that any two consecutive blocks differ in level.
std::string stairs(const Folder& folder, double seconds);

// Throws, with a message for the user who named the file, when `path` is not a sound file.
void requireSound(const std::string& path);

}  // namespace sim
