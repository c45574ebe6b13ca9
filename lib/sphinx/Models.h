// SPDX-License-Identifier: Apache-2.0
// The locations of acoustic and language models.
#pragma once

#include <string>

namespace sphinx {

// Makes a path absolute. A relative path starts at the model directory: ORVANE_MODEL_ROOT, or the directory where
// Debian installs PocketSphinx's models.
std::string modelPath(const std::string& path);

// Whether the directory has all files of an acoustic model.
bool isAcousticModel(const std::string& folder);

}  // namespace sphinx
