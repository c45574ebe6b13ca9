// SPDX-License-Identifier: Apache-2.0
#include "WakeupConfig.h"

#include <map>

#include "json/BoundedJson.h"

namespace wakeup {

namespace {

using nlohmann::json;
using Listener = nuance::IWakeupListener;

// Throws json::exception or std::invalid_argument if the value has the wrong type or is out of range.
using Reader = std::function<void(const json& value, WakeupConfig& config)>;

std::string nonEmpty(const json& value) {
    std::string text = value.get<std::string>();
    if (text.empty()) {
        throw std::invalid_argument("empty text");
    }
    return text;
}

double within(const json& value, double least, double most) {
    const double number = value.get<double>();
    if (!(number >= least && number <= most)) {
        throw std::invalid_argument("out of range");
    }
    return number;
}

Engine engine(const json& value) {
    const auto name = value.get<std::string>();
    if (name != "neural" && name != "sphinx") {
        throw std::invalid_argument("neither \"neural\" nor \"sphinx\"");
    }
    return name == "neural" ? Engine::Neural : Engine::Sphinx;
}

std::vector<std::string> phoneTexts(const json& value) {
    auto variants = value.get<std::vector<std::string>>();
    for (const std::string& variant : variants) {
        if (!sphinx::isPhoneSequence(variant)) {
            throw std::invalid_argument("\"" + variant + "\" has phones that the model lacks");
        }
    }
    return variants;
}

sphinx::Pronunciations pronunciations(const json& value) {
    sphinx::Pronunciations words;
    for (const auto& [word, variants] : value.get<std::map<std::string, json>>()) {
        words[word] = phoneTexts(variants);
    }
    return words;
}

const std::map<std::string, Reader>& readers() {
    static const std::map<std::string, Reader> table{
        {"phrase", [](const json& v, WakeupConfig& c) { c.wakeWord = nonEmpty(v); }},
        {"pronunciations", [](const json& v, WakeupConfig& c) { c.pronunciations = pronunciations(v); }},
        {"model", [](const json& v, WakeupConfig& c) { c.model = nonEmpty(v); }},
        {"dictionary", [](const json& v, WakeupConfig& c) { c.dictionary = nonEmpty(v); }},
        {"threshold", [](const json& v, WakeupConfig& c) { c.threshold = within(v, 1e-60, 1); }},
        {"engine", [](const json& v, WakeupConfig& c) { c.engine = engine(v); }},
        {"neural_threshold", [](const json& v, WakeupConfig& c) { c.neuralThreshold = within(v, -20, 20); }},
        {"speech_margin_db", [](const json& v, WakeupConfig& c) { c.speechMarginDb = within(v, 0, 40); }},
    };
    return table;
}

json parseObject(const std::string& text) {
    try {
        json root = ::json::parseBounded(text);
        if (!root.is_object()) {
            throw std::invalid_argument("not a JSON object");
        }
        return root;
    } catch (const std::exception& fault) {
        throw ConfigFault{Listener::ERROR_FROM_CONFIG_PARSER, fault.what()};
    }
}

}  // namespace

WakeupConfig parseWakeupConfig(const std::string& text, const WarningSink& warn) {
    WakeupConfig config;
    const json root = parseObject(text);
    for (const auto& [key, value] : root.items()) {
        const auto reader = readers().find(key);
        if (reader == readers().end()) {
            warn(Listener::INVALID_CONFIG_KEY, key);
            continue;
        }
        try {
            reader->second(value, config);
        } catch (const std::exception& fault) {
            warn(Listener::INVALID_CONFIG_VALUE, key + ": " + fault.what());
        }
    }
    return config;
}

}  // namespace wakeup
