// SPDX-License-Identifier: Apache-2.0
// How the timeline shows each kind of event.
#pragma once

#include <string>

#include "appliance/events/Events.h"

namespace sim {

// Escape codes of the terminal's colors.
inline constexpr char kRed[] = "31", kGreen[] = "32", kYellow[] = "33", kBlue[] = "34", kMagenta[] = "35",
                      kCyan[] = "36", kGray[] = "90";

struct TimelineRow {
    const char* color;
    const char* label;
    std::string (*text)(const Event&);
};

// Returns null for an event without a line.
const TimelineRow* rowOf(const Event& event);

}  // namespace sim
