// SPDX-License-Identifier: Apache-2.0
// The locations of acoustic and language models.
#pragma once

#include <string>

namespace sphinx {

// Makes a path absolute. A relative one starts at the model folder: ORVANE_MODEL_ROOT, or the folder in which Debian
// installs PocketSphinx's models.
std::string modelPath(const std::string& path);

// Whether the folder has all files of an acoustic model.
bool isAcousticModel(const std::string& folder);

}  // namespace sphinx
