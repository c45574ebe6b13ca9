// SPDX-License-Identifier: Apache-2.0
#include "voice/Languages.h"

#include <filesystem>
#include <fstream>

#include "dlog.h"
#include "json/BoundedJson.h"
#include "sphinx/Models.h"

namespace voice {

namespace {

bool isInstalled(const Language& language) {
    std::error_code ignored;
    return sphinx::isAcousticModel(language.acousticModel) && std::filesystem::exists(language.dictionary, ignored);
}

// Paths of sentence files are relative to the table, and paths of models are relative to the model directory.
Language read(const nlohmann::json& entry, const std::filesystem::path& folder) {
    Language language;
    language.id = entry.at("language").get<std::string>();
    language.acousticModel = sphinx::modelPath(entry.at("acoustic_model").get<std::string>());
    language.dictionary = sphinx::modelPath(entry.at("dictionary").get<std::string>());
    if (entry.contains("language_model")) {
        language.languageModel = sphinx::modelPath(entry.at("language_model").get<std::string>());
    }
    if (entry.contains("commands")) {
        language.commands = (folder / entry.at("commands").get<std::string>()).string();
    }
    return language;
}

}  // namespace

std::vector<Language> installedLanguages(const std::string& tablePath) {
    std::vector<Language> languages;
    try {
        std::ifstream in(tablePath);
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        const auto table = json::parseBounded(text);
        for (const nlohmann::json& entry : table.get<std::vector<nlohmann::json>>()) {
            Language language = read(entry, std::filesystem::path(tablePath).parent_path());
            if (isInstalled(language)) {
                languages.push_back(std::move(language));
            }
        }
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, "orvane-voice", "%s: %s", tablePath.c_str(), fault.what());
    }
    return languages;
}

}  // namespace voice
