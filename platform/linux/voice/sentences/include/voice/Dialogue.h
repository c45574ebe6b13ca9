// SPDX-License-Identifier: Apache-2.0
// The context that earlier utterances create for the next one: the question that the assistant asked, the open recipe,
// its step, and whether it is being read aloud. A person may also open a recipe by touch, so the dialogue uses only
// what it knows for certain. Main loop only.
#pragma once

#include <string>

#include "voice/SentenceFile.h"

namespace voice {

struct Intent {
    std::string agent;
    std::string actionName;
    std::string actionType;
    Fields fields;

    std::string field(const std::string& name) const;
    void setField(const std::string& name, const std::string& value);
};

class Dialogue {
public:
    void forget() { *this = Dialogue(); }

    // Whether a command that must follow another command is possible now.
    bool allows(const Command& command) const { return command.onlyAfter.empty() || command.onlyAfter == mLastAction; }

    // Adapts the intent to the dialogue and remembers it. Replaces an impossible action with the action that reports
    // the problem.
    void settle(Intent& intent, const SentenceFile& commands);

private:
    enum class Known { No, Yes, Unknown };
    enum class Reading { Unknown, Off, On, Paused };

    void settleRecipe(Intent& intent, const SentenceFile& commands);
    void openRecipe(Intent& intent, const SentenceFile& commands);
    void turnPage(Intent& intent, int by);
    void read(Intent& intent);

    std::string mLastAction;
    std::string mPackage;
    std::string mDish;
    Known mOpen = Known::Unknown;
    int mStep = -1;      // from 0; -1: unknown
    int mLastStep = -1;  // -1: unknown
    Reading mReading = Reading::Unknown;
};

}  // namespace voice
