// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_parser.h>

#include <string>

namespace Util {

// Opens web pages in the platform's viewer.
class WebLauncher {
public:
    // The page that an NLU result of a web search asks for; answers that only the UI shows open none.
    static void launch(vrp_response_data_s* response);
    static void launch(std::string url);
};

}  // namespace Util
