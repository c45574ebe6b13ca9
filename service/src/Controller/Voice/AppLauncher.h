// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_parser.h>

namespace OrvaneDA {

// Carries out a result whose agent is "Launch Apps".
class AppLauncher {
public:
    // Opens the home screen, or opens or closes the application in the result. Logs and ignores a result without launch
    // data, or with a recipe application that this country does not support.
    static void launchApps(vrp_response_data_s* response);
};

}  // namespace OrvaneDA
