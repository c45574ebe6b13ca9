// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_parser.h>
#include <voice_control_common.h>

#include <functional>
#include <string>

#include "Util/Log.h"

namespace OrvaneDA {

// Carries out the service's part of a result: cancels the recognition, launches an application, opens a web search,
// routes a recipe command to one recipe application, or does nothing. Main loop only.
class ResultDispatcher {
public:
    explicit ResultDispatcher(std::function<void()> cancelRecognition);

    // Returns false if the recognition was canceled, a recipe command was routed, or the JSON cannot be parsed. Logs
    // for the caller.
    bool dispatch(const std::string& json, vc_cmd_list_s* list,
                  const Util::Caller& caller = Util::Caller::current()) const;

private:
    bool handleRecipe(vrp_response_data_s* response, const std::string& actionName, vc_cmd_list_s* list,
                      const Util::Caller& caller) const;

    std::function<void()> mCancelRecognition;
};

}  // namespace OrvaneDA
