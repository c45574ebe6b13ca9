// SPDX-License-Identifier: Apache-2.0
// bench_report JSON FILE...: prints figures and aims for the samples in the files, and writes figures and samples to
// the file JSON. A missing figure is a failure; one above its aim is not.
#include <sys/utsname.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <exception>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "report/Rows.h"

namespace {

using nlohmann::json;

json machine() {
    utsname system{};
    uname(&system);
    double load[3] = {};
    getloadavg(load, 3);
    return {{"kernel", system.release},
            {"architecture", system.machine},
            {"cores", sysconf(_SC_NPROCESSORS_ONLN)},
            {"load", {load[0], load[1], load[2]}},
            {"time", static_cast<long long>(time(nullptr))}};
}

const char* nameOf(bench::Shown shown) {
    switch (shown) {
        case bench::Shown::P95:
            return "95th percentile";
        case bench::Shown::Spread:
            return "5th to 95th percentile";
        case bench::Shown::Median:
            break;
    }
    return "median";
}

// Prints a line of the table and returns it for the file.
json show(const bench::Row& row, const bench::Samples& samples) {
    json figure{{"figure", row.title}, {"samples", row.samples}, {"unit", row.unit}, {"statistic", nameOf(row.shown)}};
    if (!bench::isMeasured(row, samples)) {
        printf("%-40s %10s\n", row.title, "FAILED");
        figure["value"] = nullptr;
        return figure;
    }
    const double value = bench::valueOf(row, samples);
    const double aim = bench::aimOf(row, samples);
    figure["value"] = value;
    printf("%-40s %10.4g  %-11s", row.title, value, row.unit);
    if (aim > 0) {
        printf("  below %.4g%s", aim, value < aim ? "" : "  MISSED");
        figure["aim"] = aim;
        figure["met"] = value < aim;
    }
    puts("");
    return figure;
}

// Returns whether all figures were measured.
bool report(const char* path, int count, char** files) {
    bench::Samples samples;
    for (int i = 0; i < count; ++i) {
        bench::readSamples(files[i], samples);
    }
    json figures = json::array();
    printf("%-40s %10s  %-11s  %s\n", "figure (median by default)", "value", "unit", "aim");
    bool complete = true;
    for (const bench::Row& row : bench::rows()) {
        figures.push_back(show(row, samples));
        complete = complete && bench::isMeasured(row, samples);
    }
    std::ofstream file(path);
    if (!(file << json{{"machine", machine()}, {"figures", figures}, {"samples", samples}}.dump(1) << std::endl)) {
        throw std::runtime_error(std::string("cannot write ") + path);
    }
    return complete;
}

}  // namespace

int main(int count, char** words) {
    if (count < 3) {
        fputs("usage: bench_report JSON FILE...\n", stderr);
        return 2;
    }
    try {
        return report(words[1], count - 2, words + 2) ? 0 : 1;
    } catch (const std::exception& fault) {
        fprintf(stderr, "bench_report: %s\n", fault.what());
        return 1;
    }
}
