// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace fake {

// The parsed result of any text from now on. A part that is not set is absent.
struct NluResult {
    std::optional<std::string> actionType;
    std::optional<std::string> agent;
    std::optional<std::string> actionName;
    bool actionData = true;
    std::optional<std::string> launchPackage;
    struct WebSearch {
        std::optional<std::string> provider;
        std::optional<std::string> term;
        std::optional<std::string> url;
    };
    std::optional<WebSearch> webSearch;
    std::optional<std::string> recipePackage;
};

void setNluResult(const NluResult& result);
// Texts cannot be parsed from now on.
void setNluUnparsable();
// Responses that the product parsed and has not destroyed.
int openResponses();

}  // namespace fake
