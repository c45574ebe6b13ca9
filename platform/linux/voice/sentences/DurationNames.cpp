// SPDX-License-Identifier: Apache-2.0
#include "BuiltInLists.h"

namespace voice {

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;

struct Unit {
    int seconds;
    const char* one;   // "a minute"
    const char* name;  // also the singular after a number, as in "a twenty minute timer"
    int most;
};
constexpr Unit kUnits[] = {{1, "(one | a) second", "(second | seconds)", 180},
                           {kMinute, "(one | a) minute", "(minute | minutes)", 180},
                           {kHour, "(one | an) hour", "(hour | hours)", 24}};

std::string spoken(const Unit& unit, int count) {
    return count == 1 ? unit.one : spokenNumber(count) + " " + unit.name;
}

class Durations {
public:
    std::vector<Named> all() {
        for (const Unit& unit : kUnits) {
            for (int count = 1; count <= unit.most; ++count) {
                add(count * unit.seconds, spoken(unit, count));
            }
        }
        addFractions(kUnits[1], 59);
        addFractions(kUnits[2], 12);
        add(kHour / 4, "[a] quarter of an hour | a quarter hour");
        add(kHour / 2, "[a] half an hour | [a] half hour");
        add(3 * kHour / 4, "three quarters of an hour");
        add(kMinute / 2, "[a] half a minute");
        addTwoUnits(kUnits[2], 12, kUnits[1], 1);
        addTwoUnits(kUnits[1], 59, kUnits[0], 5);  // nobody times minutes more finely by voice
        return std::move(mNames);
    }

private:
    void add(int seconds, const std::string& text) { mNames.push_back({std::to_string(seconds), parseSentence(text)}); }

    // "two and a half hours", "two hours and a half", "an hour and a quarter".
    void addFractions(const Unit& unit, int most) {
        for (int count = 1; count <= most; ++count) {
            const std::string whole = spoken(unit, count);
            add(count * unit.seconds + unit.seconds / 2,
                spokenNumber(count) + " and a half " + unit.name + " | " + whole + " and a half");
            add(count * unit.seconds + unit.seconds / 4, whole + " and a quarter");
        }
    }

    // "two hours and ten minutes".
    void addTwoUnits(const Unit& large, int most, const Unit& small, int step) {
        for (int count = 1; count <= most; ++count) {
            for (int rest = step; rest < large.seconds / small.seconds; rest += step) {
                add(count * large.seconds + rest * small.seconds,
                    spoken(large, count) + " [and] " + spoken(small, rest));
            }
        }
    }

    std::vector<Named> mNames;
};

}  // namespace

std::vector<Named> durationNames() {
    return Durations().all();
}

}  // namespace voice
