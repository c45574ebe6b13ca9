// SPDX-License-Identifier: Apache-2.0
#include "voice/Understanding.h"

#include <cctype>
#include <nlohmann/json.hpp>
#include <utility>

#include "FieldValue.h"

namespace voice {

namespace {

// "Launch Apps" becomes "launch_apps". "WebSearch" and the other search agent become "web_search".
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

Intent makeIntent(const Command& command, const SlotValues& slots) {
    Intent intent{command.agent, command.actionName, command.actionType, {}};
    for (const auto& [name, value] : command.fields) {
        std::string text = filledIn(value, slots);
        if (!text.empty()) {
            intent.fields.emplace_back(name, std::move(text));
        }
    }
    return intent;
}

}  // namespace

std::optional<Intent> understand(const std::string& text, const SentenceFile& commands, Dialogue& dialogue) {
    const std::vector<std::string> words = splitWords(text);
    for (const Command& command : commands.commands) {
        if (!dialogue.allows(command)) {
            continue;
        }
        for (const Sentence& sentence : command.sentences) {
            SlotValues slots;
            if (matches(sentence, commands.lists, words, slots)) {
                Intent intent = makeIntent(command, slots);
                dialogue.settle(intent, commands);
                return intent;
            }
        }
    }
    return std::nullopt;
}

std::string toJson(const Intent& intent, const std::string& text) {
    nlohmann::json data = nlohmann::json::object();
    for (const auto& [name, value] : intent.fields) {
        data[name] = value;
    }
    nlohmann::json result{{"agent", intent.agent},
                          {"action_type", intent.actionType},
                          {"action_name", intent.actionName},
                          {"utterance", text}};
    if (!data.empty()) {
        result["action_data"] = {{dataName(intent.agent), std::move(data)}};
    }
    return result.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace voice
