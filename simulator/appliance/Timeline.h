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
    void flushLevel(double at);

    double mStart;
    bool mColours;
    std::string mMeter;  // of the recording that runs
};

}  // namespace sim
