// SPDX-License-Identifier: Apache-2.0
// The mean distance of a fade to the straight line between its levels, over the duration of the fade.
#include <sound_manager.h>
#include <unistd.h>

#include <cmath>
#include <stdexcept>

#include "Util/Sound/VolumeController.h"
#include "modules/Measures.h"

namespace bench {

namespace {

constexpr int kLoud = 12;
constexpr int kDucked = 2;
constexpr double kFadeSeconds = 1;
constexpr double kWatchdogSeconds = 5;
constexpr int kFades = 5;
constexpr useconds_t kPollMicroseconds = 5000;

int level() {
    int now = -1;
    sound_manager_get_volume(SOUND_TYPE_MEDIA, &now);
    return now;
}

void follow(Figures& figures, const char* name, int from, int to) {
    double distance = 0;
    int polls = 0;
    const double begun = sim::monotonicNow();
    for (double past = 0; past < kFadeSeconds; past = sim::monotonicNow() - begun) {
        distance += std::abs(level() - (from + (to - from) * past / kFadeSeconds));
        ++polls;
        usleep(kPollMicroseconds);
    }
    while (level() != to) {
        if (sim::monotonicNow() - begun > kWatchdogSeconds) {
            throw std::runtime_error("a fade does not end");
        }
        usleep(kPollMicroseconds);
    }
    figures.add(name, distance / polls);
}

}  // namespace

// The controller fades only while media plays.
void measureFades(sim::Appliance& appliance, Figures& figures) {
    appliance.launch(sim::kMusic);
    appliance.await(sim::kMusic, {{"event", "playing"}});
    Util::VolumeController controller(Util::MediaType::MEDIA);
    controller.setVolume(kLoud);
    for (int fade = 0; fade < kFades; ++fade) {
        if (controller.decreaseVolume(kFadeSeconds) != 1) {
            throw std::runtime_error("no fade starts");
        }
        follow(figures, "fade down error levels", kLoud, kDucked);
        controller.restoreVolume(kFadeSeconds);
        follow(figures, "fade up error levels", kDucked, kLoud);
    }
}

}  // namespace bench
