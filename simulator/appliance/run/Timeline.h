// SPDX-License-Identifier: Apache-2.0
// Prints events as lines of text.
#pragma once

#include <string>

#include "appliance/events/Events.h"

namespace sim {

class Timeline {
public:
    // `start` is the monotonic time that the lines show as 0.
    Timeline(double start, bool colors) : mStart(start), mColors(colors) {}

    void print(const Event& event);

private:
    void printRow(const Event& event);
    void line(double at, const char* color, const std::string& label, const std::string& text) const;
    void addLevel(double at, int decibel);
    void addVolume(int percent);
    void printPartialResult(const Event& event);
    void flush(double at);

    double mStart;
    bool mColors;
    // Collected since the last line:
    std::string mMeter;  // a bar for each tenth of a second
    double mBarEnds = 0;
    int mLoudest = 0;
    std::string mVolumes;
};

}  // namespace sim
