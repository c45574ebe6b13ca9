// SPDX-License-Identifier: Apache-2.0
// Events as lines that a person reads.
#pragma once

#include <string>

#include "appliance/Events.h"

namespace sim {

class Timeline {
public:
    // `start`: the monotonic time that is shown as 0. Colours only when `colours`.
    Timeline(double start, bool colours) : mStart(start), mColours(colours) {}

    void print(const Event& event);

private:
    void line(double at, const char* colour, const std::string& who, const std::string& text) const;
    void addLevel(double at, int decibel);
    void addVolume(int percent);
    void hear(double at, const std::string& words);
    void flush(double at);

    double mStart;
    bool mColours;
    std::string mMeter;  // since the last line, a bar for each tenth of a second
    double mBarEnds = 0;
    int mLoudest = 0;
    std::string mVolumes;  // since the last line
};

}  // namespace sim
