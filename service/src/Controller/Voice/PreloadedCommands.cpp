// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/PreloadedCommands.h"

#include <tzplatform_config.h>

#include "Util/Constants.h"

namespace OrvaneDA {

const std::string& preloadedCommandsPath() {
    static const std::string path = [] {
        const char* made = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, Constants::File::PRELOADED_COMMANDS);
        return std::string(made ? made : "");
    }();
    return path;
}

}  // namespace OrvaneDA
