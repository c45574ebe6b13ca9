// SPDX-License-Identifier: Apache-2.0
#include "voice/Engine.h"

#include "SphinxRecognizer.h"
#include "dlog.h"

namespace voice {

std::unique_ptr<Recognizer> makeRecognizer(const Language& language, SentenceFile& commands) {
    return std::make_unique<SphinxRecognizer>(language, commands);
}

std::shared_ptr<Engine> loadEngine(const Language& language, const std::string& commandsPath) {
    try {
        auto engine = std::make_shared<Engine>();
        engine->language = language;
        const std::string& path = language.commands.empty() ? commandsPath : language.commands;
        if (!path.empty()) {
            readSentenceFile(path, engine->commands);
        }
        engine->recognizer = makeRecognizer(language, engine->commands);
        dlog_print(DLOG_INFO, "orvane-voice", "recognizes %s", language.id.c_str());
        return engine;
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, "orvane-voice", "cannot load the recognizer for \"%s\": %s", language.id.c_str(),
                   fault.what());
        return nullptr;
    }
}

}  // namespace voice
