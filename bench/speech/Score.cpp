// SPDX-License-Identifier: Apache-2.0
#include "speech/Score.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace bench {

namespace {

// "some milk" is the same item as "milk".
std::string_view withoutArticle(std::string_view value) {
    for (const std::string_view article : {"a ", "an ", "the ", "my ", "some ", "any "}) {
        if (value.substr(0, article.size()) == article) {
            return value.substr(article.size());
        }
    }
    return value;
}

void printRow(const std::string& name, const Score& score) {
    std::printf("%-36s %10d %6d %9d\n", name.c_str(), score.understood, score.wrong, score.rejected);
}

// The sum of all rows for the assistant, or the row for other talk.
Score total(const Scores& scores, bool forAssistant) {
    Score sum;
    for (const auto& [name, score] : scores) {
        if ((name != "nothing") == forAssistant) {
            sum.understood += score.understood;
            sum.wrong += score.wrong;
            sum.rejected += score.rejected;
        }
    }
    return sum;
}

nlohmann::json toJson(const Score& score) {
    return {{"understood", score.understood}, {"wrong", score.wrong}, {"rejected", score.rejected}};
}

}  // namespace

Verdict judge(const Everyday& expected, const voice::Intent* intent) {
    if (expected.agent.empty()) {
        return intent ? Verdict::Wrong : Verdict::Understood;
    }
    if (!intent) {
        return Verdict::Rejected;
    }
    const bool right = intent->agent == expected.agent && intent->actionName == expected.actionName &&
                       std::all_of(expected.fields.begin(), expected.fields.end(), [&](const auto& field) {
                           return withoutArticle(intent->field(field.first)) == withoutArticle(field.second);
                       });
    return right ? Verdict::Understood : Verdict::Wrong;
}

void Score::add(Verdict verdict) {
    ++(verdict == Verdict::Understood ? understood : verdict == Verdict::Wrong ? wrong : rejected);
}

std::string intentName(const Everyday& expected) {
    return expected.agent.empty() ? "nothing" : expected.agent + " / " + expected.actionName;
}

void printTable(const Scores& scores, bool everyIntent) {
    std::printf("%-36s %10s %6s %9s\n", "", "understood", "wrong", "rejected");
    for (const auto& [name, score] : scores) {
        if (everyIntent) {
            printRow(name, score);
        }
    }
    printRow("all sentences for the assistant", total(scores, true));
    printRow("other talk (understood = rejected)", total(scores, false));
}

nlohmann::json toJson(const Scores& scores) {
    nlohmann::json intents = nlohmann::json::object();
    for (const auto& [name, score] : scores) {
        intents[name] = toJson(score);
    }
    return {{"for_assistant", toJson(total(scores, true))},
            {"other_talk", toJson(total(scores, false))},
            {"intents", intents}};
}

}  // namespace bench
