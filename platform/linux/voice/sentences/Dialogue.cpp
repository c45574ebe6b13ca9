// SPDX-License-Identifier: Apache-2.0
#include "voice/Dialogue.h"

#include <algorithm>

namespace voice {

std::string Intent::field(const std::string& name) const {
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.first == name; });
    return found == fields.end() ? "" : found->second;
}

void Intent::setField(const std::string& name, const std::string& value) {
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.first == name; });
    if (found == fields.end()) {
        fields.emplace_back(name, value);
    } else {
        found->second = value;
    }
}

void Dialogue::settle(Intent& intent, const SentenceFile& commands) {
    if (intent.agent == "Recipe") {
        settleRecipe(intent, commands);
    }
    mLastAction = intent.actionName;
}

void Dialogue::settleRecipe(Intent& intent, const SentenceFile& commands) {
    const std::string action = intent.actionName;
    if (action == "Open Recipe") {
        return openRecipe(intent, commands);
    }
    if (!mPackage.empty()) {
        intent.setField("package", mPackage);
    }
    if (mOpen == Known::No) {
        intent.actionName = "Recipe Page Is Not Open";
    } else if (action == "Close Recipe") {
        mOpen = Known::No;
    } else if (action == "Next Step") {
        turnPage(intent, 1);
    } else if (action == "Previous Step") {
        turnPage(intent, -1);
    } else {
        read(intent);
    }
}

void Dialogue::openRecipe(Intent& intent, const SentenceFile& commands) {
    const std::string package = intent.field("package");
    const std::string dish = intent.field("dish");
    if (mOpen == Known::Yes && package == mPackage && dish == mDish) {
        intent.actionName = "Recipe App Already Launched";
        return;
    }
    const auto steps = commands.recipeSteps.find(dish);
    mOpen = Known::Yes;
    mPackage = package;
    mDish = dish;
    mStep = 0;
    mLastStep = steps == commands.recipeSteps.end() ? -1 : steps->second - 1;
    mReading = Reading::Off;
}

void Dialogue::turnPage(Intent& intent, int by) {
    if (mStep < 0) {
        return;
    }
    if (by > 0 && mStep == mLastStep) {
        intent.actionName = "No Next Step";
    } else if (by < 0 && mStep == 0) {
        intent.actionName = "No Previous Step";
    } else {
        mStep += by;
    }
}

void Dialogue::read(Intent& intent) {
    const std::string action = intent.actionName;
    if (action == "Read Out") {
        if (mReading == Reading::On) {
            intent.actionName = "Read Out Is Already Playing";
        }
        mReading = Reading::On;
    } else if (mReading == Reading::Off) {
        intent.actionName = "Read Out Not Started";
    } else if (action == "Pause Read Out") {
        if (mReading == Reading::Paused) {
            intent.actionName = "Read Out Is Already Paused";
        }
        mReading = Reading::Paused;
    } else if (action == "Resume Read Out") {
        if (mReading == Reading::On) {
            intent.actionName = "Read Out Is Already Running";
        }
        mReading = Reading::On;
    } else if (action == "Stop Read Out") {
        mReading = Reading::Off;
    }
}

}  // namespace voice
