// SPDX-License-Identifier: Apache-2.0
#include <cstdio>

#include "BuiltInLists.h"

namespace voice {

namespace {

constexpr int kHours = 12;  // on the face of a clock

// A part of the day and what people call it. An hour may belong to several parts.
struct DayPart {
    const char* spoken;
    int first;  // hours of the clock, where 12 is 0
    int last;
    bool isAfternoon;
};
constexpr DayPart kDayParts[] = {{"(a m | am | in the morning)", 0, 11, false},
                                 {"(p m | pm)", 0, 11, true},
                                 {"in the afternoon", 0, 6, true},
                                 {"in the evening", 4, 11, true},
                                 {"at night", 6, 11, true},
                                 {"at night", 0, 5, false}};

std::string clockHour(int hour) {
    return spokenNumber(hour % kHours == 0 ? kHours : hour % kHours);
}

// "quarter past", "twenty [minutes] to". Only the multiples of five are common.
std::string fiveMinutes(int minute) {
    return minute == 15 ? "[a] quarter" : spokenNumber(minute) + " [minutes]";
}

// "seven thirty", "half past seven", and so on, without the part of the day.
std::string onTheClock(int hour, int minute) {
    const std::string now = clockHour(hour);
    if (minute == 0) {
        return now + " [o'clock]";
    }
    std::string spoken = now + (minute < 10 ? " oh " : " ") + spokenNumber(minute);
    if (minute == 30) {
        spoken += " | half past " + now;
    } else if (minute % 5 == 0 && minute < 30) {
        spoken += " | " + fiveMinutes(minute) + " (past | after) " + now;
    } else if (minute % 5 == 0) {
        spoken += " | " + fiveMinutes(60 - minute) + " (to | till | before | of) " + clockHour(hour + 1);
    }
    return spoken;
}

std::string timeOfDay(int hour, int minute) {
    char text[32];
    std::snprintf(text, sizeof(text), "%02d:%02d", hour, minute);
    return text;
}

// The parts of the day that contain the hour before or after noon.
std::string dayParts(int hour, bool isAfternoon) {
    std::string spoken;
    for (const DayPart& part : kDayParts) {
        if (part.isAfternoon == isAfternoon && hour >= part.first && hour <= part.last) {
            spoken += (spoken.empty() ? "" : " | ") + std::string(part.spoken);
        }
    }
    return "(" + spoken + ")";
}

}  // namespace

std::vector<Named> timeNames() {
    std::vector<Named> names{{"12:00", parseSentence("noon | midday | twelve noon")},
                             {"00:00", parseSentence("midnight | twelve midnight")}};
    for (int hour = 0; hour < kHours; ++hour) {
        for (int minute = 0; minute < 60; ++minute) {
            const std::string clock = onTheClock(hour, minute);
            // Without a part of the day, the hour counts as spoken, and twelve is noon.
            names.push_back({timeOfDay(hour == 0 ? kHours : hour, minute), parseSentence(clock)});
            names.push_back({timeOfDay(hour, minute), parseSentence("(" + clock + ") " + dayParts(hour, false))});
            names.push_back(
                {timeOfDay(hour + kHours, minute), parseSentence("(" + clock + ") " + dayParts(hour, true))});
        }
    }
    return names;
}

}  // namespace voice
