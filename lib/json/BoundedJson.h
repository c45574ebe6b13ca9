// SPDX-License-Identifier: Apache-2.0
// Parses untrusted JSON with limits on its depth and size, so that no input can exhaust the stack or the memory.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>

namespace json {

constexpr int kMaxDepth = 32;
constexpr std::size_t kMaxBytes = std::size_t{1} << 20;

// Throws std::exception, with a message for the log, if the text is not JSON or exceeds a limit.
inline nlohmann::json parseBounded(std::string_view text) {
    if (text.size() > kMaxBytes) {
        throw std::length_error("more than a megabyte of JSON");
    }
    const auto bound = [](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        if (depth > kMaxDepth) {
            throw std::length_error("JSON nested too deeply");
        }
        return true;
    };
    return nlohmann::json::parse(text.begin(), text.end(), bound);
}

}  // namespace json
