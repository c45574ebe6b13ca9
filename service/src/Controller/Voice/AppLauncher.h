// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_parser.h>

namespace OrvaneDA {

// Carries out a result whose agent is "Launch Apps".
class AppLauncher {
public:
    // Opens the home screen, or opens or closes the application that the result names. A result without launch data and
    // a recipe application without support in this country are logged and launch nothing.
    static void launchApps(vrp_response_data_s* response);
};

}  // namespace OrvaneDA
