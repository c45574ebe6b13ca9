// SPDX-License-Identifier: Apache-2.0
// What has been said before, as far as it changes what is understood now: the question that was asked back, and the
// recipe that is open, its step and its reading. Only what is known for certain is acted on: a recipe may also have
// been opened by touch. Main loop only.
#pragma once

#include <string>

#include "voice/CommandFile.h"

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

    // Whether a command that only follows another fits now.
    bool allows(const Command& command) const { return command.onlyAfter.empty() || command.onlyAfter == mLastAction; }

    // Settles what the intent means here and now, and remembers it. An impossible one becomes the answer that says so.
    void settle(Intent& intent, const CommandFile& commands);

private:
    enum class Known { No, Yes, Unknown };
    enum class Reading { Unknown, Off, On, Paused };

    void settleRecipe(Intent& intent, const CommandFile& commands);
    void openRecipe(Intent& intent, const CommandFile& commands);
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
