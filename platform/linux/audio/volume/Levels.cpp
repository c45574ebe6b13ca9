// SPDX-License-Identifier: Apache-2.0
#include "Levels.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "audio/SoundServer.h"
#include "process/Owner.h"
#include "pulse/Requests.h"

namespace audio {

namespace {

using pulse::Context;
using pulse::RoleVolume;
using pulse::Volume;

// Null for media, which uses the loudspeaker's volume.
const char* roleOf(sound_type_e type) {
    switch (type) {
        case SOUND_TYPE_SYSTEM:
            return "system";
        case SOUND_TYPE_NOTIFICATION:
            return "event";
        case SOUND_TYPE_ALARM:
            return "alarm";
        default:
            return nullptr;
    }
}

int levelOf(const Volume& volume) {
    const long level = std::lround(volume.share() * kHighestLevel);
    return volume.isMuted() ? 0 : static_cast<int>(std::min<long>(level, kHighestLevel));
}

void setLevel(Volume& volume, int level) {
    if (level == 0) {
        volume.mute();
    } else {
        volume.set(static_cast<double>(level) / kHighestLevel);
    }
}

std::optional<Volume> readLoudspeaker(bool* late) {
    std::optional<Volume> found;
    process::shared<SoundServer>().ask(
        [&](const Context& context) {
            return pulse::readLoudspeaker(context, [&](const Volume& volume) { found = volume; });
        },
        late);
    return found;
}

std::optional<RoleVolume> readRole(const char* role, bool* late) {
    RoleVolume found{role, {}, ""};
    bool answered = false;
    const auto keep = [&](const RoleVolume& each) {
        if (each.role == role) {
            found = each;
        }
    };
    process::shared<SoundServer>().ask(
        [&](const Context& context) {
            return pulse::readRoleVolumes(context, keep, [&](bool succeeded) { answered = succeeded; });
        },
        late);
    return answered ? std::optional(found) : std::nullopt;
}

// Sends the request and waits for its result.
template <typename Request>
bool succeeds(const Request& request) {
    bool done = false;
    process::shared<SoundServer>().ask(
        [&](const Context& context) { return request(context, [&](bool succeeded) { done = succeeded; }); });
    return done;
}

bool writeLoudspeaker(int level) {
    auto volume = readLoudspeaker(nullptr);
    if (!volume) {
        return false;
    }
    setLevel(*volume, level);
    const bool set = succeeds([&](const Context& context, pulse::Done done) {
        return pulse::writeLoudspeakerVolume(context, *volume, std::move(done));
    });
    const bool muted = succeeds([&](const Context& context, pulse::Done done) {
        return pulse::writeLoudspeakerMute(context, volume->isMuted(), std::move(done));
    });
    return set && muted;
}

bool writeRole(const char* name, int level) {
    auto role = readRole(name, nullptr);
    if (!role) {
        return false;
    }
    setLevel(role->volume, level);
    return succeeds([&](const Context& context, pulse::Done done) {
        return pulse::writeRoleVolume(context, *role, std::move(done));
    });
}

}  // namespace

bool isSoundType(sound_type_e type) {
    return std::find(std::begin(kSoundTypes), std::end(kSoundTypes), type) != std::end(kSoundTypes);
}

std::optional<int> readLevel(sound_type_e type, bool* late) {
    const char* name = roleOf(type);
    if (!name) {
        const auto volume = readLoudspeaker(late);
        return volume ? std::optional(levelOf(*volume)) : std::nullopt;
    }
    const auto role = readRole(name, late);
    return role ? std::optional(levelOf(role->volume)) : std::nullopt;
}

bool writeLevel(sound_type_e type, int level) {
    const char* role = roleOf(type);
    return role ? writeRole(role, level) : writeLoudspeaker(level);
}

}  // namespace audio
