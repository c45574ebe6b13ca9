// Text as sound.
#pragma once

#include <string>

#include "appliance/Folder.h"

namespace sim {

// The path of a WAV file, 16 kHz mono, with the quiet noise of a room under it. `voice` is one of flite's. Throws
// std::runtime_error.
std::string speak(const Folder& folder, const std::string& text, const std::string& voice);

}  // namespace sim
