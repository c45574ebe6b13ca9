// SPDX-License-Identifier: Apache-2.0
#include "voice/Understanding.h"

#include <cctype>
#include <nlohmann/json.hpp>

namespace voice {

namespace {

// "Launch Apps" and "WebSearch" name their data "launch_apps" and "web_search"; the other search agent shares the
// latter.
std::string dataName(const std::string& agent) {
    if (agent == "Naver") {
        return "web_search";
    }
    std::string name;
    for (std::size_t i = 0; i < agent.size(); ++i) {
        const auto letter = static_cast<unsigned char>(agent[i]);
        if (std::isupper(letter) && i > 0 && std::islower(static_cast<unsigned char>(agent[i - 1]))) {
            name += '_';
        }
        name += std::isspace(letter) ? '_' : static_cast<char>(std::tolower(letter));
    }
    return name;
}

// "<list>" and "*" become what was said.
std::string filledIn(const std::string& value, const Filling& filling) {
    const bool isList = value.size() > 2 && value.front() == '<' && value.back() == '>';
    const auto found = filling.find(isList ? value.substr(1, value.size() - 2) : value);
    return isList || value == "*" ? (found == filling.end() ? "" : found->second) : value;
}

Intent makeIntent(const Command& command, const Filling& filling) {
    Intent intent{command.agent, command.actionName, command.actionType, {}};
    for (const auto& [name, value] : command.fields) {
        intent.fields.emplace_back(name, filledIn(value, filling));
    }
    return intent;
}

}  // namespace

std::optional<Intent> understand(const std::string& sentence, const CommandFile& commands, Dialogue& dialogue) {
    const std::vector<std::string> words = splitWords(sentence);
    for (const Command& command : commands.commands) {
        if (!dialogue.allows(command)) {
            continue;
        }
        for (const Phrase& phrase : command.sentences) {
            Filling filling;
            if (matches(phrase, commands.lists, words, filling)) {
                Intent intent = makeIntent(command, filling);
                dialogue.settle(intent, commands);
                return intent;
            }
        }
    }
    return std::nullopt;
}

std::string toJson(const Intent& intent, const std::string& sentence) {
    nlohmann::json data = nlohmann::json::object();
    for (const auto& [name, value] : intent.fields) {
        data[name] = value;
    }
    nlohmann::json result{{"agent", intent.agent},
                          {"action_type", intent.actionType},
                          {"action_name", intent.actionName},
                          {"utterance", sentence}};
    if (!data.empty()) {
        result["action_data"] = {{dataName(intent.agent), std::move(data)}};
    }
    return result.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace voice
