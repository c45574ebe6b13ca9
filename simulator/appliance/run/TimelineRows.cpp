// SPDX-License-Identifier: Apache-2.0
#include "appliance/run/TimelineRows.h"

#include <cstdio>
#include <map>

#include "appliance/Names.h"

namespace sim {

namespace {

std::string text(const Event& event, const char* member) {
    return event.value(member, std::string());
}

std::string name(const Event& event) {
    return text(event, "event");
}

std::string application(const Event& event) {
    return text(event, "app");
}

std::string launched(const Event& event) {
    const std::string operation = text(event, "operation");
    return application(event) + " (" + operation.substr(operation.rfind('/') + 1) + ")";
}

std::string intent(const Event& event) {
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

std::string users(const Event& event) {
    std::string names;
    for (const auto& user : event["names"]) {
        names += (names.empty() ? "" : ", ") + user.get<std::string>();
    }
    return names.empty() ? "none" : names;
}

const std::map<std::string, TimelineRow> kRows = {
    {"said", {kCyan, "person says", [](const Event& e) { return "\"" + text(e, "text") + "\""; }}},
    {"played", {kCyan, "room plays", [](const Event& e) { return text(e, "file"); }}},
    {"wake word detected", {kGreen, "UI receives", name}},
    {"speech detected", {kGreen, "UI receives", name}},
    {"state", {kGreen, "UI receives", state}},
    {"sent", {kBlue, "UI sends", [](const Event& e) { return text(e, "operation"); }}},
    {"result", {kYellow, "intent", intent}},
    {"levels", {kGray, "level file", rhythm}},
    {"launch", {kMagenta, "launched", launched}},
    {"opened", {kMagenta, "opened", [](const Event& e) { return text(e, "uri") + " in " + application(e); }}},
    {"closed", {kMagenta, "closed", application}},
    {"voice result",
     {kMagenta, "application receives", [](const Event& e) { return application(e) + ": " + text(e, "text"); }}},
    {"playing", {kMagenta, "music", [](const Event&) { return std::string("plays"); }}},
    {"paused", {kMagenta, "music", [](const Event&) { return std::string("is paused"); }}},
    {"briefing", {kMagenta, "morning briefing", [](const Event& e) { return text(e, "state"); }}},
    {"status request",
     {kBlue, "account service", [](const Event& e) { return "status request, " + text(e, "behavior"); }}},
    {"notification sent", {kBlue, "account service", [](const Event&) { return std::string("profile changed"); }}},
    {"request", {kBlue, "hub", [](const Event& e) { return text(e, "method") + " " + text(e, "path"); }}},
    {"users", {kMagenta, "users stored", users}},
};

const TimelineRow kApplianceRow{kGray, "appliance", name};

}  // namespace

const TimelineRow* rowOf(const Event& event) {
    const auto row = kRows.find(name(event));
    if (row != kRows.end()) {
        // The UI's launches have separate lines.
        return name(event) == "launch" && application(event) == kUi ? nullptr : &row->second;
    }
    return application(event) == "appliance" ? &kApplianceRow : nullptr;
}

}  // namespace sim
