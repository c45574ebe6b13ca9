// SPDX-License-Identifier: Apache-2.0
#include "report/Rows.h"

namespace bench {

const std::vector<Row>& rows() {
    static const std::vector<Row> all{
        {"one block, recorder to engine", "BlockFromRecorderToEngine", "ns", Shown::Median, 2, "BlockFloor"},
        {"  of which its level", "LevelOfABlock", "ns"},
        {"  the transfer alone", "BlockFromRecorderToEngine", "ns", Shown::Median, 0, nullptr, "LevelOfABlock"},
        {"  floor: allocation, copy, release, lock", "BlockFloor", "ns"},
        {"one log line", "OneLogLine", "ns"},
        {"  the same two writes without the log", "TheSameTwoWritesWithoutTheLog", "ns"},
        {"wake word to launch at the UI", "wake word to launch ms", "ms"},
        {"  95th percentile", "wake word to launch ms", "ms", Shown::P95, 115},
        {"start request to Recording at the UI", "start to recording ms", "ms"},
        {"  95th percentile", "start to recording ms", "ms", Shown::P95},
        {"start-up until listening", "start-up s", "s", Shown::Median, 1},
        {"listening, silent room", "listening silence %", "% of a core", Shown::Median, 5},
        {"listening, talk in the room", "listening talk %", "% of a core", Shown::Median, 5},
        {"listening, no wake engine", "listening without engine %", "% of a core", Shown::Median, 0.5},
        {"  an engine that discards its audio", "listening audio discarded %", "% of a core"},
        {"resident memory", "resident MB", "MB"},
        {"speech recognized per second of CPU", "speech recognized s/s", "s"},
        {"level file period", "level file period ms", "ms"},
        {"  spread, 5th to 95th percentile", "level file period ms", "ms", Shown::Spread},
        {"settings read, number", "settings read number ns", "ns"},
        {"settings read, text", "settings read text ns", "ns"},
        {"settings change by another process", "settings change us", "us"},
        {"  95th percentile", "settings change us", "us", Shown::P95},
        {"message port round trip", "message round trip us", "us"},
        {"  95th percentile", "message round trip us", "us", Shown::P95},
        {"message accepted by a port", "message accepted us", "us", Shown::Median, 1.5, "plain call us"},
        {"  a D-Bus call whose receiver only replies", "plain call us", "us"},
        {"profile refresh, 20 families of 10", "profile refresh ms", "ms"},
        {"fade down, mean distance to the line", "fade down error levels", "levels"},
        {"fade up, mean distance to the line", "fade up error levels", "levels"},
    };
    return all;
}

bool isMeasured(const Row& row, const Samples& samples) {
    for (const char* name : {row.samples, row.floor, row.without}) {
        if (name != nullptr && samples.count(name) == 0) {
            return false;
        }
    }
    return true;
}

double valueOf(const Row& row, const Samples& samples) {
    const auto& values = samples.at(row.samples);
    switch (row.shown) {
        case Shown::P95:
            return quantile(values, 0.95);
        case Shown::Spread:
            return quantile(values, 0.95) - quantile(values, 0.05);
        case Shown::Median:
            break;
    }
    return quantile(values, 0.5) - (row.without == nullptr ? 0 : quantile(samples.at(row.without), 0.5));
}

double aimOf(const Row& row, const Samples& samples) {
    return row.floor == nullptr ? row.aim : row.aim * quantile(samples.at(row.floor), 0.5);
}

}  // namespace bench
