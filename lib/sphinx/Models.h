// SPDX-License-Identifier: Apache-2.0
// Where acoustic and language models are installed.
#pragma once

#include <string>

namespace sphinx {

// An absolute path stays; another is one below the model folder: ORVANE_MODEL_ROOT, or where Debian installs
// PocketSphinx's models.
std::string modelPath(const std::string& path);

// Whether the folder holds what an acoustic model needs.
bool isAcousticModel(const std::string& folder);

}  // namespace sphinx
