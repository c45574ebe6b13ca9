// SPDX-License-Identifier: Apache-2.0
// orvane-faults: injects faults into the running service and prints how it reacts. Succeeds if the service reports
// every fault, recovers within two seconds, and then holds no more resources than before.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>

#include "Fault.h"
#include "Table.h"
#include "appliance/environment/PrivateTmp.h"
#include "appliance/processes/Interrupt.h"

namespace {

using faults::Fault;
using faults::Row;
using faults::Trial;

constexpr char kHelp[] =
    "usage: script/faults [--short] [--list] [--log] [--only TEXT]\n"
    "Injects faults into the running service and prints a row for each: what the service reported, how long it\n"
    "took to record again, and its streams, memory, files, and threads before and after.\n"
    "  --short      injects only the faults that CI injects\n"
    "  --list       prints the names of the faults\n"
    "  --log        prints the end of the service's log after each failure\n"
    "  --only TEXT  injects only the faults whose names contain TEXT\n";
constexpr double kRecoverySeconds = 2;
constexpr double kRecoveryWatchdog = 30;

struct Options {
    bool quick = false;
    bool list = false;
    bool log = false;
    std::string only;
};

Options readOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--help") {
            fputs(kHelp, stdout);
            exit(0);
        } else if (word == "--short") {
            options.quick = true;
        } else if (word == "--list") {
            options.list = true;
        } else if (word == "--log") {
            options.log = true;
        } else if (word == "--only" && i + 1 < argc) {
            options.only = argv[++i];
        } else {
            fprintf(stderr, "faults: unknown or incomplete option %s; see --help\n", word.c_str());
            exit(2);
        }
    }
    return options;
}

std::vector<Fault> chosenFaults(const Options& options) {
    std::vector<Fault> chosen;
    for (const auto& group : {faults::soundFaults, faults::settingsFaults, faults::uiFaults, faults::hubFaults,
                              faults::fileFaults, faults::busFaults, faults::startFaults, faults::processFaults}) {
        for (Fault& fault : group()) {
            if ((fault.quick || !options.quick) && fault.name.find(options.only) != std::string::npos) {
                chosen.push_back(std::move(fault));
            }
        }
    }
    return chosen;
}

// Returns the seconds until the service records again. If the service has ended by itself, restarts it and returns -1.
double recover(Trial& trial) {
    if (trial.serviceEnded()) {
        trial.restart();
        return -1;
    }
    const double begin = sim::monotonicNow();
    sim::until(
        "the service records again", [&] { return trial.records(); }, kRecoveryWatchdog);
    return sim::monotonicNow() - begin;
}

void perform(const Fault& fault, Trial& trial, Row& row) {
    row.before = faults::resourcesOf(trial.appliance());
    fault.run(trial);
    row.recovery = recover(trial);
    if (trial.restarted()) {  // there is no earlier state to compare with
        row.recovery = -1;
        row.before = faults::resourcesOf(trial.appliance());
    }
    row.after = faults::settledResources(trial.appliance(), row.before, fault.keptKb);
    row.failure = faults::excess(row.before, row.after, fault.keptKb);
    if (row.recovery > kRecoverySeconds) {
        row.failure = "the recovery takes longer than two seconds";
    }
}

Row rowOf(const Fault& fault, sim::Appliance& appliance) {
    Row row;
    row.fault = fault.name;
    Trial trial(appliance);
    try {
        perform(fault, trial, row);
    } catch (const faults::CannotRun& condition) {
        row.failure = condition.reason;
        row.skipped = true;
    } catch (const std::exception& failure) {
        row.failure = failure.what();
    }
    row.reported = trial.reported();
    return row;
}

// What the processes that perform the faults have in common.
struct Progress {
    std::size_t next;
    int failures;
    int skipped;
};

// Performs faults up to the first failure, after which the fault may still last.
void performSome(const std::vector<Fault>& chosen, Progress& progress, bool log) {
    faults::removeSharedFiles();
    sim::Appliance appliance;
    faults::startWarm(appliance);
    for (bool failed = false; !failed && progress.next < chosen.size();) {
        const Row row = rowOf(chosen[progress.next++], appliance);
        faults::print(row);
        failed = !row.failure.empty();
        if (failed && log) {
            appliance.service().printEndOfLog();
        }
        progress.failures += failed && !row.skipped ? 1 : 0;
        progress.skipped += row.skipped ? 1 : 0;
    }
}

[[noreturn]] void becomeOneAppliance(const std::vector<Fault>& chosen, Progress& progress, bool log) {
    try {
        sim::catchInterrupts();
        performSome(chosen, progress, log);
        exit(0);
    } catch (const sim::Interrupted& interrupted) {
        exit(128 + interrupted.signal);
    } catch (const std::exception& failure) {
        fprintf(stderr, "faults: %s\n", failure.what());
        exit(1);
    }
}

// There can be one appliance in a process, and each failure needs a new one.
int run(const std::vector<Fault>& chosen, bool log) {
    void* memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        perror("faults");
        return 1;
    }
    Progress& progress = *new (memory) Progress{};
    faults::printHeading();
    while (progress.next < chosen.size()) {
        const pid_t child = fork();
        if (child == 0) {
            becomeOneAppliance(chosen, progress, log);
        }
        int status = 0;
        if (waitpid(child, &status, 0) != child || status != 0) {
            return 1;
        }
    }
    printf("%zu faults, %d failures, %d skipped\n", chosen.size(), progress.failures, progress.skipped);
    return progress.failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = readOptions(argc, argv);
    const std::vector<Fault> chosen = chosenFaults(options);
    if (options.list) {
        for (const Fault& fault : chosen) {
            printf("%s%s\n", fault.name.c_str(), fault.quick ? " (short form)" : "");
        }
        return 0;
    }
    if (!sim::enterPrivateTmp()) {
        fputs("faults: this machine does not permit a private /tmp; using the shared one\n", stderr);
    }
    return run(chosen, options.log);
}
