// SPDX-License-Identifier: Apache-2.0
#include "voice/Engine.h"

#include "SphinxRecognizer.h"
#include "process/FaultLog.h"

namespace voice {

namespace {

constexpr char kTag[] = "orvane-voice";
constexpr char kOperation[] = "load of the recognizer";

}  // namespace

std::unique_ptr<Recognizer> makeRecognizer(const Language& language, SentenceFile& commands) {
    return std::make_unique<SphinxRecognizer>(language, commands);
}

std::shared_ptr<Engine> loadEngine(const Language& language, const std::string& commandsPath) {
    try {
        auto engine = std::make_shared<Engine>();
        engine->language = language;
        const std::string& path = language.commands.empty() ? commandsPath : language.commands;
        if (!path.empty() && !readSentenceFile(path, engine->commands)) {
            return nullptr;
        }
        engine->recognizer = makeRecognizer(language, engine->commands);
        process::faultEnded(kOperation);
        dlog_print(DLOG_INFO, kTag, "recognizes %s", language.id.c_str());
        return engine;
    } catch (const std::exception& fault) {
        process::logFault(DLOG_ERROR, kTag, kOperation,
                          "cannot load the recognizer for \"" + language.id + "\": " + fault.what());
        return nullptr;
    }
}

}  // namespace voice
