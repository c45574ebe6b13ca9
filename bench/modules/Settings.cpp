// SPDX-License-Identifier: Apache-2.0
// The duration of a read, and the time from another process's change until the listener receives it on the main loop.
#include <stdlib.h>
#include <unistd.h>
#include <vconf.h>

#include <memory>
#include <stdexcept>

#include "modules/MainLoop.h"
#include "modules/Measures.h"
#include "shared/Settings.h"

namespace bench {

namespace {

constexpr char kNumber[] = "db/bench/number";
constexpr char kText[] = "db/bench/text";
constexpr char kStamp[] = "db/bench/stamp";
constexpr int kBatches = 50;
constexpr int kReads = 200;
constexpr int kChanges = 200;
constexpr useconds_t kPauseMicroseconds = 10000;

struct Free {
    void operator()(char* text) const noexcept { free(text); }
};

// Microseconds of the monotonic clock, reduced to the range of a setting's number.
int stamp() {
    return static_cast<int>(static_cast<long long>(sim::monotonicNow() * 1e6) & 0x3fffffff);
}

bool readNumber() {
    int value = 0;
    return vconf_get_int(kNumber, &value) == 0 && value == 7;
}

bool readText() {
    const std::unique_ptr<char, Free> text(vconf_get_str(kText));
    return text != nullptr;
}

void measureReads(Figures& figures, const char* name, bool (*read)()) {
    for (int batch = 0; batch < kBatches; ++batch) {
        const double begun = sim::monotonicNow();
        for (int i = 0; i < kReads; ++i) {
            if (!read()) {
                throw std::runtime_error("a setting cannot be read");
            }
        }
        figures.add(name, 1e9 * (sim::monotonicNow() - begun) / kReads);
    }
}

struct Changes {
    Figures& figures;
    int seen;
};

void onChange(keynode_t* node, void* data) noexcept {
    auto& changes = *static_cast<Changes*>(data);
    changes.figures.add("settings change us", (stamp() - vconf_keynode_get_int(node)) & 0x3fffffff);
    if (++changes.seen == kChanges) {
        MainLoop::quit();
    }
}

}  // namespace

int changeSettings() {
    for (int i = 0; i < kChanges; ++i) {
        sim::settings::set(kStamp, stamp());
        usleep(kPauseMicroseconds);
    }
    return 0;
}

void measureSettings(sim::Appliance& appliance, Figures& figures) {
    MainLoop loop;
    sim::settings::set(kNumber, 7);
    sim::settings::set(kText, "en_US.UTF-8");
    measureReads(figures, "settings read number ns", readNumber);
    measureReads(figures, "settings read text ns", readText);
    Changes changes{figures, 0};
    vconf_notify_key_changed(kStamp, onChange, &changes);
    const sim::Process other({"/proc/self/exe", kChangeSettings}, appliance.folder() / "bench.log");
    loop.run("all changes of the other process arrive");
    vconf_ignore_key_changed(kStamp, onChange);
}

}  // namespace bench
