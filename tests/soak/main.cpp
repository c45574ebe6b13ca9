// SPDX-License-Identifier: Apache-2.0
// orvane-soak: a long time on a simulated appliance. Exit 0 when every request ended as it may and nothing grew.
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>

#include "Growth.h"
#include "Soak.h"
#include "appliance/PrivateTmp.h"

namespace {

constexpr char kHelp[] =
    "usage: orvane-soak [--requests N] [--seed N] [--json FILE]\n"
    "Makes requests of the service on a simulated appliance, with cancels, faults and changes at random moments.\n";
constexpr int kProveEvery = 50;
constexpr double kMostGrowth = 0.05;
// In a shorter run everything is still being loaded for the first time.
constexpr int kFewestForGrowth = 400;

struct Options {
    int requests = 2000;
    unsigned seed = 1;
    std::string json;
};

// Ends the program for anything else than a number from `least` on.
int number(const char* word, int least) {
    int value = 0;
    const char* end = word + strlen(word);
    const auto result = std::from_chars(word, end, value);
    if (result.ec != std::errc() || result.ptr != end || value < least) {
        fprintf(stderr, "soak: %s is no number from %d on\n", word, least);
        exit(2);
    }
    return value;
}

Options read(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--help") {
            fputs(kHelp, stdout);
            exit(0);
        } else if (word == "--requests" && i + 1 < count) {
            options.requests = number(words[++i], 1);
        } else if (word == "--seed" && i + 1 < count) {
            options.seed = static_cast<unsigned>(number(words[++i], 0));
        } else if (word == "--json" && i + 1 < count) {
            options.json = words[++i];
        } else {
            fprintf(stderr, "soak: unknown or incomplete option %s; see --help\n", word.c_str());
            exit(2);
        }
    }
    return options;
}

struct Report {
    int requests = 0;
    double seconds = 0;
    std::vector<bench::Usage> samples;
    std::map<std::string, int> ends;
};

void print(const Report& report, const Options& options, std::ostream& file) {
    printf("%d requests in %.0f s\n", report.requests, report.seconds);
    for (const auto& [end, times] : report.ends) {
        printf("%6d  %s\n", times, end.c_str());
    }
    const bench::Usage& first = report.samples.front();
    const bench::Usage& last = report.samples.back();
    printf("memory %ld kB at first, %ld kB at last, %+.1f %% from the third to the last quarter\n", first.residentKb,
           last.residentKb, soak::growth(report.samples) * 100);
    printf("%d threads and %d open files at first, %d and %d at last\n", first.threads, first.files, last.threads,
           last.files);
    if (!options.json.empty()) {
        const nlohmann::json json{{"requests", report.requests},
                                  {"seed", options.seed},
                                  {"seconds", report.seconds},
                                  {"ends", report.ends},
                                  {"rss_kb", {first.residentKb, last.residentKb}},
                                  {"growth", soak::growth(report.samples)},
                                  {"threads", {first.threads, last.threads}},
                                  {"files", {first.files, last.files}}};
        file << json.dump(2) << std::endl;
    }
}

void run(sim::Appliance& appliance, const Options& options, std::ostream& file) {
    soak::Soak soak(appliance, options.seed);
    Report report;
    const double begin = sim::monotonicNow();
    soak.proveAlive();
    report.samples.push_back(bench::usageOf(appliance.serviceProcess()));
    for (; report.requests < options.requests; ++report.requests) {
        if (report.requests % kProveEvery == kProveEvery - 1) {
            soak.proveAlive();
            report.samples.push_back(bench::usageOf(appliance.serviceProcess()));
            printf("%d requests, %.0f s, %ld kB\n", report.requests + 1, sim::monotonicNow() - begin,
                   report.samples.back().residentKb);
            fflush(stdout);
        }
        try {
            soak.request();
        } catch (const std::exception& fault) {
            throw std::runtime_error("request " + std::to_string(report.requests + 1) + ", " + fault.what());
        }
    }
    soak.proveAlive();
    report.samples.push_back(bench::usageOf(appliance.serviceProcess()));
    report.ends = soak.ends();
    report.seconds = sim::monotonicNow() - begin;
    print(report, options, file);
    if (report.requests >= kFewestForGrowth && soak::growth(report.samples) > kMostGrowth) {
        throw std::runtime_error("the service's memory grows");
    }
    const int code = appliance.endService();
    if (code != 0) {
        throw std::runtime_error("the service ended with code " + std::to_string(code));
    }
}

}  // namespace

int main(int count, char** words) {
    const Options options = read(count, words);
    std::ofstream file;
    if (!options.json.empty()) {
        file.open(options.json);  // before its folder may be hidden
        if (!file) {
            fprintf(stderr, "soak: cannot write %s\n", options.json.c_str());
            return 2;
        }
    }
    if (!sim::enterPrivateTmp()) {
        fputs("soak: no private /tmp on this machine; using the shared one\n", stderr);
    }
    try {
        sim::Appliance appliance;
        try {
            appliance.startService();
            run(appliance, options, file);
        } catch (const std::exception&) {
            appliance.showLastWords();
            throw;
        }
        return 0;
    } catch (const std::exception& fault) {
        fprintf(stderr, "soak: %s\n", fault.what());
        return 1;
    }
}
