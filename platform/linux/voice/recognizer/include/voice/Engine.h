// SPDX-License-Identifier: Apache-2.0
// A loaded recognizer and its sentences.
#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <mutex>
#include <string>

#include "speech/MemoryReturn.h"
#include "voice/Languages.h"
#include "voice/Recognizer.h"
#include "voice/SentenceFile.h"

namespace voice {

struct Engine {
    speech::MemoryReturn memoryReturn;
    Language language;
    SentenceFile commands;                   // constant after loading
    std::unique_ptr<Recognizer> recognizer;  // guarded by the mutex, because a canceled utterance may still use it
    std::mutex mutex;
    std::atomic<bool> failed{false};  // the recognizer may be lost and must be loaded again
};

// An engine that another thread loads. Null if loading failed; loadEngine has logged the reason.
using EngineFuture = std::shared_future<std::shared_ptr<Engine>>;

// commandsPath may be empty if there are no sentences yet. On failure, logs a line and returns null.
std::shared_ptr<Engine> loadEngine(const Language& language, const std::string& commandsPath);

}  // namespace voice
