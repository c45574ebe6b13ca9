// SPDX-License-Identifier: Apache-2.0
#include "audio/Playing.h"

#include "audio/SoundServer.h"
#include "process/Owner.h"
#include "pulse/Requests.h"

namespace audio {

namespace {

struct Role {
    const char* name;
    sound_stream_focus_change_reason_e reason;
};

// All other streams are media: music, video, games, and streams without a role.
constexpr Role kRoles[] = {
    {"system", SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM},
    {"alarm", SOUND_STREAM_FOCUS_CHANGED_BY_ALARM},
    {"event", SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION},
    {"notification", SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION},
    {"a11y", SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION},
    {"assistant", SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION},
    {"ringtone", SOUND_STREAM_FOCUS_CHANGED_BY_RINGTONE},
    {"phone", SOUND_STREAM_FOCUS_CHANGED_BY_CALL},
};

sound_stream_focus_change_reason_e reasonOf(const std::string& role) {
    for (const Role& known : kRoles) {
        if (role == known.name) {
            return known.reason;
        }
    }
    return SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
}

}  // namespace

std::optional<Playing> whatPlays(bool* late) {
    Playing playing;
    bool answered = false;
    const auto add = [&](const pulse::PlaybackInfo& stream) {
        if (!stream.isPaused && !stream.belongsToServer) {
            playing.emplace(reasonOf(stream.role), stream.application);
        }
    };
    process::shared<SoundServer>().ask(
        [&](const pulse::Context& context) {
            return pulse::listPlayback(context, add, [&](bool succeeded) { answered = succeeded; });
        },
        late);
    return answered ? std::optional(std::move(playing)) : std::nullopt;
}

}  // namespace audio
