// SPDX-License-Identifier: Apache-2.0
#include "appliance/Timeline.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "appliance/Environment.h"

namespace sim {

namespace {

constexpr char kRed[] = "31", kGreen[] = "32", kYellow[] = "33", kBlue[] = "34", kMagenta[] = "35", kCyan[] = "36",
               kGrey[] = "90";
constexpr const char* kBars[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr int kQuietest = -64;
constexpr int kDecibelPerBar = 8;
constexpr double kBarSeconds = 0.1;
constexpr std::size_t kMeterColumn = 40;

std::string text(const Event& event, const char* member) {
    return event.value(member, std::string());
}

std::string lastPart(const std::string& operation) {
    return operation.substr(operation.rfind('/') + 1);
}

std::string understood(const Event& event) {
    const Event result = Event::parse(text(event, "json"), nullptr, false);
    return result.is_object() ? text(result, "agent") + " / " + text(result, "action_name") : text(event, "json");
}

std::string state(const Event& event) {
    return text(event, "state") + (text(event, "state") == "Error" ? ": " + text(event, "error") : "");
}

std::string rhythm(const Event& event) {
    char words[80];
    snprintf(words, sizeof words, "%d changes, every %.1f ms, longest gap %.0f ms", event.value("changes", 0),
             event.value("period", 0.0), event.value("longest", 0.0));
    return words;
}

std::string joined(const Event& list) {
    std::string words;
    for (const auto& word : list) {
        words += (words.empty() ? "" : ", ") + word.get<std::string>();
    }
    return words.empty() ? "nobody" : words;
}

struct Row {
    const char* colour;
    const char* who;
    std::string (*words)(const Event&);
};

const std::map<std::string, Row> kRows = {
    {"said", {kCyan, "person", [](const Event& e) { return "\"" + text(e, "text") + "\""; }}},
    {"wake-up", {kGreen, "UI is told", [](const Event& e) { return text(e, "event"); }}},
    {"speech detected", {kGreen, "UI is told", [](const Event& e) { return text(e, "event"); }}},
    {"state", {kGreen, "UI is told", state}},
    {"asked", {kBlue, "UI asks", [](const Event& e) { return text(e, "operation"); }}},
    {"result", {kYellow, "understood", understood}},
    {"levels", {kGrey, "level file", rhythm}},
    {"opened", {kMagenta, "opened", [](const Event& e) { return text(e, "uri") + " in " + text(e, "app"); }}},
    {"closed", {kMagenta, "closed", [](const Event& e) { return text(e, "app"); }}},
    {"voice result", {kMagenta, "told", [](const Event& e) { return text(e, "app") + ": " + text(e, "text"); }}},
    {"playing", {kMagenta, "music", [](const Event&) { return std::string("plays"); }}},
    {"paused", {kMagenta, "music", [](const Event&) { return std::string("is paused"); }}},
    {"briefing", {kMagenta, "morning briefing", [](const Event& e) { return text(e, "state"); }}},
    {"status asked", {kBlue, "account service", [](const Event& e) { return text(e, "behaviour"); }}},
    {"notified", {kBlue, "account service", [](const Event&) { return std::string("a profile has changed"); }}},
    {"request", {kBlue, "hub", [](const Event& e) { return text(e, "method") + " " + text(e, "path"); }}},
    {"users", {kMagenta, "users stored", [](const Event& e) { return joined(e["names"]); }}},
    {"setting", {kGrey, "setting", [](const Event& e) { return text(e, "key") + " = " + e["value"].dump(); }}},
};

const char* colourOf(const Row& row, const Event& event) {
    return text(event, "state") == "Error" ? kRed : row.colour;
}

}  // namespace

void Timeline::line(double at, const char* colour, const std::string& who, const std::string& words) const {
    const std::string on = mColours ? std::string("\033[") + colour + "m" : "";
    printf("%8.2f  %s%-22s%s %s\n", at - mStart, on.c_str(), who.c_str(), mColours ? "\033[0m" : "", words.c_str());
    fflush(stdout);
}

void Timeline::addLevel(double at, int decibel) {
    if (at >= mBarEnds) {
        const int bar = (mLoudest - kQuietest) / kDecibelPerBar;
        mMeter += mBarEnds > 0 ? kBars[std::clamp(bar, 0, 7)] : "";
        mBarEnds = at + kBarSeconds;
        mLoudest = kQuietest;
    }
    mLoudest = std::max(mLoudest, decibel);
}

void Timeline::addVolume(int percent) {
    mVolumes += (mVolumes.empty() ? "" : " ") + std::to_string(percent);
}

// The level since the line before stands beside the words.
void Timeline::hear(double at, const std::string& words) {
    const std::string space(words.size() < kMeterColumn ? kMeterColumn - words.size() : 1, ' ');
    line(at, kYellow, "hears", words + space + mMeter);
    mMeter.clear();
}

void Timeline::flush(double at) {
    if (!mMeter.empty()) {
        line(at, kGrey, "level", mMeter);
        mMeter.clear();
    }
    if (!mVolumes.empty()) {
        line(at, kMagenta, "loudspeaker", mVolumes + " %");
        mVolumes.clear();
    }
}

void Timeline::print(const Event& event) {
    const std::string app = text(event, "app");
    const std::string what = text(event, "event");
    const double at = event["at"];
    if (what == "level") {
        addLevel(at, event["level"]);
        return;
    }
    if (what == "volume") {
        addVolume(event["percent"]);
        return;
    }
    if (what == "partial") {
        hear(at, text(event, "text").empty() ? "(nothing)" : text(event, "text"));
        return;
    }
    const auto row = kRows.find(what);
    if (row != kRows.end()) {
        flush(at);
        line(at, colourOf(row->second, event), row->second.who, row->second.words(event));
    } else if (what == "launch" && app != kUi) {
        flush(at);
        line(at, kMagenta, "launched", app + " (" + lastPart(text(event, "operation")) + ")");
    } else if (app == "appliance") {
        flush(at);
        line(at, kGrey, "appliance", what);
    }
}

}  // namespace sim
