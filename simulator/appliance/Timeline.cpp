#include "appliance/Timeline.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "appliance/Environment.h"

namespace sim {

namespace {

constexpr char kRed[] = "31", kGreen[] = "32", kYellow[] = "33", kBlue[] = "34", kMagenta[] = "35", kCyan[] = "36",
               kGrey[] = "90";
constexpr const char* kBars[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr int kLoudest = 80;

std::string text(const Event& event, const char* member) {
    return event.value(member, std::string());
}

const char* bar(const std::string& level) {
    const int value = std::clamp(atoi(level.c_str()), 0, kLoudest);
    return kBars[value * 7 / kLoudest];
}

std::string heard(const std::string& json) {
    const Event result = Event::parse(json, nullptr, false);
    return result.is_object() ? result.value("agent", "") + " / " + result.value("action_name", "") : json;
}

std::string lastPart(const std::string& operation) {
    return operation.substr(operation.rfind('/') + 1);
}

}  // namespace

void Timeline::line(double at, const char* colour, const std::string& who, const std::string& words) const {
    const std::string on = mColours ? std::string("\033[") + colour + "m" : "";
    printf("%8.2f  %s%-22s%s %s\n", at - mStart, on.c_str(), who.c_str(), mColours ? "\033[0m" : "", words.c_str());
    fflush(stdout);
}

void Timeline::flushLevel(double at) {
    if (!mMeter.empty()) {
        line(at, kGrey, "level", mMeter);
        mMeter.clear();
    }
}

void Timeline::print(const Event& event) {
    const std::string app = text(event, "app");
    const std::string what = text(event, "event");
    const double at = event["at"];
    if (what == "level") {
        mMeter += bar(text(event, "level"));
    } else if (what == "said") {
        line(at, kCyan, "person (" + text(event, "voice") + ")", "\"" + text(event, "text") + "\"");
    } else if (what == "state") {
        flushLevel(at);
        const bool bad = text(event, "state") == "Error";
        line(at, bad ? kRed : kGreen, "UI is told", text(event, "state") + (bad ? ": " + text(event, "error") : ""));
    } else if (what == "partial") {
        line(at, kYellow, event.value("final", false) ? "heard" : "hears", text(event, "text"));
    } else if (what == "result") {
        line(at, kYellow, "understood", heard(text(event, "json")));
    } else if (what == "asked") {
        line(at, kBlue, "UI asks", text(event, "operation"));
    } else if (what == "launch" && app != kUi) {
        line(at, kMagenta, "launched", app + " (" + lastPart(text(event, "operation")) + ")");
    } else if (what == "opened") {
        line(at, kMagenta, "opened", text(event, "uri") + " in " + app);
    } else if (what == "closed") {
        line(at, kMagenta, "closed", app);
    } else if (what == "voice result") {
        line(at, kMagenta, "told", app + ": " + text(event, "text"));
    } else if (app == kUi && (what == "wake-up" || what == "speech detected")) {
        line(at, kGreen, "UI is told", what);
    } else if (app == "appliance") {
        line(at, kGrey, "appliance", what);
    }
}

}  // namespace sim
