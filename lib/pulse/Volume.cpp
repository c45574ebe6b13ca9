// SPDX-License-Identifier: Apache-2.0
#include "pulse/Volume.h"

#include <cmath>

namespace pulse {

Volume::Volume() : mVolume{}, mChannels{} {
    pa_cvolume_set(&mVolume, 1, PA_VOLUME_NORM);
    pa_channel_map_init_mono(&mChannels);
}

void Volume::set(double share) {
    mMuted = false;
    pa_cvolume_scale(&mVolume, static_cast<pa_volume_t>(std::lround(share * PA_VOLUME_NORM)));
}

}  // namespace pulse
