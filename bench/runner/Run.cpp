// SPDX-License-Identifier: Apache-2.0
#include "runner/Run.h"

#include <appliance/environment/PrivateTmp.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

namespace bench {

namespace {

bool isChosen(const std::vector<std::string>& names, const std::string& name) {
    return names.empty() || std::find(names.begin(), names.end(), name) != names.end();
}

bool runOne(const Measure& measure, sim::Appliance& appliance, Figures& figures) {
    printf("   %s\n", measure.name);
    fflush(stdout);
    try {
        measure.run(appliance, figures);
        return true;
    } catch (const std::exception& fault) {
        fprintf(stderr, "bench: %s: %s\n", measure.name, fault.what());
        appliance.service().printEndOfLog();
        appliance.service().stop();
        return false;
    }
}

}  // namespace

int runMeasures(int count, char** words, const std::vector<Measure>& measures) {
    if (count < 2) {
        fprintf(stderr, "usage: %s FILE [NAME...]\n", words[0]);
        return 2;
    }
    const std::vector<std::string> names(words + 2, words + count);
    std::ofstream file(words[1]);  // before the private /tmp may hide its directory
    sim::enterPrivateTmp();
    try {
        Figures figures;
        bool complete = true;
        sim::Appliance appliance;
        for (const Measure& measure : measures) {
            if (isChosen(names, measure.name)) {
                complete = runOne(measure, appliance, figures) && complete;
            }
        }
        figures.write(file);
        return complete ? 0 : 1;
    } catch (const std::exception& fault) {
        fprintf(stderr, "bench: %s\n", fault.what());
        return 1;
    }
}

}  // namespace bench
