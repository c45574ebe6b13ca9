// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_parser.h>

#include <string>

namespace Util {

// Opens web pages in the platform's web browser.
class WebLauncher {
public:
    // Opens the page for the NLU result of a web search. Does nothing for an action that only the UI answers.
    static void launch(vrp_response_data_s* response);
    static void launch(std::string url);
};

}  // namespace Util
