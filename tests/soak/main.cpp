// SPDX-License-Identifier: Apache-2.0
// orvane-soak: a series of requests to the service on a simulated appliance. Succeeds when every request ended with a
// permitted state and the memory did not grow.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "Growth.h"
#include "Options.h"
#include "Report.h"
#include "Soak.h"
#include "appliance/environment/PrivateTmp.h"

namespace {

constexpr int kProveEvery = 50;
constexpr double kGrowthLimit = 0.05;
// A shorter run still loads models for the first time.
constexpr int kFewestForGrowth = 400;

void proveAndSample(sim::Appliance& appliance, soak::Soak& soak, soak::Report& report) {
    soak.proveAlive();
    report.samples.push_back(sim::usageOf(appliance.service().process()));
}

void makeRequest(soak::Soak& soak, int number) {
    try {
        soak.request();
    } catch (const std::exception& fault) {
        throw std::runtime_error("request " + std::to_string(number) + ", " + fault.what());
    }
}

soak::Report makeRequests(sim::Appliance& appliance, const soak::Options& options) {
    soak::Soak soak(appliance, options.seed);
    soak::Report report;
    const double begin = sim::monotonicNow();
    proveAndSample(appliance, soak, report);
    while (report.requests < options.requests) {
        makeRequest(soak, ++report.requests);
        if (report.requests % kProveEvery == 0) {
            proveAndSample(appliance, soak, report);
            printf("%d requests, %.0f s, %ld kB\n", report.requests, sim::monotonicNow() - begin,
                   report.samples.back().residentKb);
            fflush(stdout);
        }
    }
    proveAndSample(appliance, soak, report);
    report.ends = soak.ends();
    report.seconds = sim::monotonicNow() - begin;
    return report;
}

void run(sim::Appliance& appliance, const soak::Options& options, std::ostream& file) {
    const soak::Report report = makeRequests(appliance, options);
    soak::print(report);
    if (!options.json.empty()) {
        soak::writeJson(report, options.seed, file);
    }
    if (report.requests >= kFewestForGrowth && soak::growth(report.samples) > kGrowthLimit) {
        throw std::runtime_error("the service's memory grows");
    }
    const int code = appliance.service().end();
    if (code != 0) {
        throw std::runtime_error("the service ended with code " + std::to_string(code));
    }
}

}  // namespace

int main(int count, char** words) {
    const soak::Options options = soak::readOptions(count, words);
    std::ofstream file;
    if (!options.json.empty()) {
        file.open(options.json);  // before the private /tmp may hide its directory
        if (!file) {
            fprintf(stderr, "soak: cannot write %s\n", options.json.c_str());
            return 2;
        }
    }
    if (!sim::enterPrivateTmp()) {
        fputs("soak: this machine does not permit a private /tmp; using the shared one\n", stderr);
    }
    try {
        sim::Appliance appliance;
        try {
            appliance.service().start();
            run(appliance, options, file);
        } catch (const std::exception&) {
            appliance.service().printEndOfLog();
            throw;
        }
        return 0;
    } catch (const std::exception& fault) {
        fprintf(stderr, "soak: %s\n", fault.what());
        return 1;
    }
}
