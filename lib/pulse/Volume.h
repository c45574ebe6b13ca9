// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pulse/pulseaudio.h>

namespace pulse {

// The volume of each channel of a loudspeaker or of a role.
class Volume {
public:
    // Full volume of one channel.
    Volume();
    Volume(const pa_cvolume& volume, const pa_channel_map& channels, bool muted)
        : mVolume(volume), mChannels(channels), mMuted(muted) {}

    bool isMuted() const { return mMuted; }
    // The volume of the loudest channel; 1 is full volume. Muting does not change it.
    double share() const { return static_cast<double>(pa_cvolume_max(&mVolume)) / PA_VOLUME_NORM; }
    // Muting keeps the balance of the channels, which volume 0 would lose.
    void mute() { mMuted = true; }
    // Unmutes and keeps the balance of the channels.
    void set(double share);

    const pa_cvolume& volume() const { return mVolume; }
    const pa_channel_map& channels() const { return mChannels; }

private:
    pa_cvolume mVolume;
    pa_channel_map mChannels;
    bool mMuted = false;
};

}  // namespace pulse
