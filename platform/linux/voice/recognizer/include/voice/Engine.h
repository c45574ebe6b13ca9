// SPDX-License-Identifier: Apache-2.0
// A recognizer that is loaded, with the sentences that it knows.
#pragma once

#include <future>
#include <memory>
#include <mutex>
#include <string>

#include "speech/MemoryReturn.h"
#include "voice/CommandFile.h"
#include "voice/Languages.h"
#include "voice/Recognizer.h"

namespace voice {

struct Engine {
    speech::MemoryReturn memoryReturn;
    Language language;
    CommandFile commands;                    // not changed any more
    std::unique_ptr<Recognizer> recognizer;  // under the mutex: a cancelled utterance may still be at it
    std::mutex mutex;
};

// One that is being loaded on a thread of its own. get() gives null when it could not be: logged there.
using EngineFuture = std::shared_future<std::shared_ptr<Engine>>;

// commandsPath may be empty: no sentences yet. An empty language id: none is installed.
std::shared_ptr<Engine> loadEngine(const Language& language, const std::string& commandsPath);

}  // namespace voice
