// SPDX-License-Identifier: Apache-2.0
// How well a sentence file understands the everyday sentences.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "speech/EverydayList.h"
#include "voice/Dialogue.h"

namespace bench {

enum class Verdict { Understood, Wrong, Rejected };

// Compares a result with what was expected. `intent` is null after a rejection. For a sentence that must be rejected,
// a rejection counts as understood.
Verdict judge(const Everyday& expected, const voice::Intent* intent);

struct Score {
    int understood = 0;
    int wrong = 0;
    int rejected = 0;

    void add(Verdict verdict);
};

// By intent; other talk is "nothing".
using Scores = std::map<std::string, Score>;

std::string intentName(const Everyday& expected);

void printTable(const Scores& scores, bool everyIntent);
nlohmann::json toJson(const Scores& scores);

}  // namespace bench
