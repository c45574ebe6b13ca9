// SPDX-License-Identifier: Apache-2.0
#include "Report.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "Growth.h"

namespace soak {

void print(const Report& report) {
    printf("%d requests in %.0f s\n", report.requests, report.seconds);
    for (const auto& [end, times] : report.ends) {
        printf("%6d  %s\n", times, end.c_str());
    }
    const sim::Usage& first = report.samples.front();
    const sim::Usage& last = report.samples.back();
    printf("memory %ld kB at the beginning, %ld kB at the end, %+.1f %% from the third to the last quarter\n",
           first.residentKb, last.residentKb, soak::growth(report.samples) * 100);
    printf("%d threads and %d open files at the beginning, %d and %d at the end\n", first.threads, first.files,
           last.threads, last.files);
}

void writeJson(const Report& report, unsigned seed, std::ostream& file) {
    const sim::Usage& first = report.samples.front();
    const sim::Usage& last = report.samples.back();
    const nlohmann::json json{{"requests", report.requests},
                              {"seed", seed},
                              {"seconds", report.seconds},
                              {"ends", report.ends},
                              {"rss_kb", {first.residentKb, last.residentKb}},
                              {"growth", soak::growth(report.samples)},
                              {"threads", {first.threads, last.threads}},
                              {"files", {first.files, last.files}}};
    file << json.dump(2) << std::endl;
}

}  // namespace soak
