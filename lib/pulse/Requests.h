// SPDX-License-Identifier: Apache-2.0
// Requests to a ready context. Each callback runs on the loop, as long as the Operation exists.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "pulse/Context.h"
#include "pulse/Operation.h"
#include "pulse/Volume.h"

namespace pulse {

// Called last, once.
using Done = std::function<void(bool succeeded)>;

// The volume of the default loudspeaker. Without a loudspeaker, `result` is not called.
Operation readLoudspeaker(const Context& context, std::function<void(const Volume&)> result);
Operation writeLoudspeakerVolume(const Context& context, const Volume& volume, Done done);
Operation writeLoudspeakerMute(const Context& context, bool muted, Done done);

// The volume that the server applies to all streams of a media role.
struct RoleVolume {
    std::string role;
    Volume volume;
    std::string device;  // empty: any
};
Operation readRoleVolumes(const Context& context, std::function<void(const RoleVolume&)> each, Done done);
Operation writeRoleVolume(const Context& context, const RoleVolume& role, Done done);

struct PlaybackInfo {
    std::string application;
    std::string role;  // empty: none
    bool isPaused;
    bool belongsToServer;  // the server's own stream, which connects two devices
};
Operation listPlayback(const Context& context, std::function<void(const PlaybackInfo&)> each, Done done);

// The name of the default source, or of the one in PULSE_SOURCE. Empty if it is the monitor of a loudspeaker or does
// not exist. `result` is called once and may destroy the operation.
Operation findMicrophone(const Context& context, std::function<void(const std::string& name)> result);
// Whether the source with this number of the server is a microphone: it exists and is not a monitor. `result` as above.
Operation checkMicrophone(const Context& context, uint32_t source, std::function<void(bool microphone)> result);

}  // namespace pulse
