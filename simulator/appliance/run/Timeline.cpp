// SPDX-License-Identifier: Apache-2.0
#include "appliance/run/Timeline.h"

#include <algorithm>
#include <cstdio>

#include "appliance/run/TimelineRows.h"

namespace sim {

namespace {

constexpr const char* kBars[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr int kQuietest = -64;
constexpr int kDecibelPerBar = 8;
constexpr double kBarSeconds = 0.1;
constexpr std::size_t kMeterColumn = 40;

}  // namespace

void Timeline::print(const Event& event) {
    const std::string kind = event.at("event");
    if (kind == "level") {
        addLevel(event.at("at"), event.at("level"));
    } else if (kind == "volume") {
        addVolume(event.at("percent"));
    } else if (kind == "partial") {
        printPartialResult(event);
    } else {
        printRow(event);
    }
}

void Timeline::printRow(const Event& event) {
    if (const TimelineRow* row = rowOf(event)) {
        const double at = event.at("at");
        flush(at);
        line(at, event.value("state", "") == "Error" ? kRed : row->color, row->label, row->text(event));
    }
}

void Timeline::line(double at, const char* color, const std::string& label, const std::string& text) const {
    const std::string on = mColors ? std::string("\033[") + color + "m" : "";
    printf("%8.2f  %s%-22s%s %s\n", at - mStart, on.c_str(), label.c_str(), mColors ? "\033[0m" : "", text.c_str());
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

// The levels since the previous line stand beside the text.
void Timeline::printPartialResult(const Event& event) {
    std::string text = event.at("text");
    if (text.empty()) {
        text = "(nothing)";
    }
    const std::string space(text.size() < kMeterColumn ? kMeterColumn - text.size() : 1, ' ');
    line(event.at("at"), kYellow, "recognized", text + space + mMeter);
    mMeter.clear();
}

void Timeline::flush(double at) {
    if (!mMeter.empty()) {
        line(at, kGray, "level", mMeter);
        mMeter.clear();
    }
    if (!mVolumes.empty()) {
        line(at, kMagenta, "loudspeaker", mVolumes + " %");
        mVolumes.clear();
    }
}

}  // namespace sim
