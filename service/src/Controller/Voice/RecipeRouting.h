// SPDX-License-Identifier: Apache-2.0
// Recipe commands: several recipe applications may have registered the command that was recognized. Main loop only.
#pragma once

#include <orvane_da_parser.h>
#include <voice_control_common.h>

#include <string>

#include "Util/Log.h"

namespace OrvaneDA {

// Whether the UI itself shows the answer to this action, so that no recipe application receives the result.
bool isRecipeAnswer(const std::string& actionName);
// Removes the commands of all other applications from `list` and passes the rest to the manager. Logs for the caller.
void routeRecipe(vrp_recipe_data_s* recipe, const std::string& actionName, vc_cmd_list_s* list,
                 const Util::Caller& caller = Util::Caller::current());

}  // namespace OrvaneDA
