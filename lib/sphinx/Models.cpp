// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Models.h"

#include <cstdlib>
#include <filesystem>

namespace sphinx {

std::string modelPath(const std::string& path) {
    const char* root = std::getenv("ORVANE_MODEL_ROOT");
    return (std::filesystem::path(root ? root : "/usr/share/pocketsphinx/model") / path).string();
}

bool isAcousticModel(const std::string& folder) {
    std::error_code ignored;
    for (const char* part : {"mdef", "means", "variances", "transition_matrices", "feat.params"}) {
        if (!std::filesystem::exists(std::filesystem::path(folder) / part, ignored)) {
            return false;
        }
    }
    return true;
}

}  // namespace sphinx
