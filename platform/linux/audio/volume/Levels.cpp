// SPDX-License-Identifier: Apache-2.0
#include "Levels.h"

#include <pulse/ext-stream-restore.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "audio/SoundServer.h"
#include "pulse/Operation.h"

namespace audio {

namespace {

constexpr const char* kLoudspeaker = "@DEFAULT_SINK@";

struct Setting {
    pa_cvolume volume;
    bool muted;
    pa_channel_map channels;
    std::string device;  // a role's; empty: any
};

const char* entryOf(sound_type_e type) {
    switch (type) {
        case SOUND_TYPE_SYSTEM:
            return "sink-input-by-media-role:system";
        case SOUND_TYPE_NOTIFICATION:
            return "sink-input-by-media-role:event";
        case SOUND_TYPE_ALARM:
            return "sink-input-by-media-role:alarm";
        default:
            return nullptr;
    }
}

int levelOf(const Setting& setting) {
    const double share = static_cast<double>(pa_cvolume_max(&setting.volume)) / PA_VOLUME_NORM;
    return setting.muted ? 0 : static_cast<int>(std::min<long>(std::lround(share * kHighestLevel), kHighestLevel));
}

// What is muted keeps its volume, and so its balance, which a volume of nothing would lose.
void scale(Setting& setting, int level) {
    setting.muted = level == 0;
    if (setting.muted) {
        return;
    }
    const auto volume =
        static_cast<pa_volume_t>(std::lround(static_cast<double>(level) / kHighestLevel * PA_VOLUME_NORM));
    pa_cvolume_scale(&setting.volume, volume);
}

std::optional<Setting> readLoudspeaker(bool* late) {
    std::optional<Setting> found;
    SoundServer::get().ask(
        [&found](pa_context* context) {
            return pa_context_get_sink_info_by_name(
                context, kLoudspeaker,
                [](pa_context*, const pa_sink_info* info, int, void* result) noexcept {
                    if (info) {
                        *static_cast<std::optional<Setting>*>(result) =
                            Setting{info->volume, info->mute != 0, info->channel_map, ""};
                    }
                },
                &found);
        },
        late);
    return found;
}

struct RoleQuestion {
    std::string entry;
    Setting setting;
    bool answered;
};

void roleRead(pa_context*, const pa_ext_stream_restore_info* info, int end, void* data) noexcept {
    auto* question = static_cast<RoleQuestion*>(data);
    if (!info) {
        question->answered = end > 0;
    } else if (question->entry == info->name && pa_cvolume_valid(&info->volume)) {
        question->setting = Setting{info->volume, info->mute != 0, info->channel_map, info->device ? info->device : ""};
    }
}

std::optional<Setting> readRole(const char* entry, bool* late) {
    RoleQuestion question{entry, {}, false};
    pa_cvolume_set(&question.setting.volume, 1, PA_VOLUME_NORM);
    pa_channel_map_init_mono(&question.setting.channels);
    SoundServer::get().ask(
        [&](pa_context* context) { return pa_ext_stream_restore_read(context, roleRead, &question); }, late);
    return question.answered ? std::optional<Setting>(question.setting) : std::nullopt;
}

void succeeded(pa_context*, int success, void* result) noexcept {
    *static_cast<bool*>(result) = success != 0;
}

bool writeLoudspeaker(const Setting& setting) {
    bool set = false;
    bool unmuted = false;
    SoundServer& server = SoundServer::get();
    server.ask([&](pa_context* context) {
        return pa_context_set_sink_volume_by_name(context, kLoudspeaker, &setting.volume, succeeded, &set);
    });
    server.ask([&](pa_context* context) {
        return pa_context_set_sink_mute_by_name(context, kLoudspeaker, setting.muted, succeeded, &unmuted);
    });
    return set && unmuted;
}

bool writeRole(const char* entry, const Setting& setting) {
    pa_ext_stream_restore_info info{};
    info.name = entry;
    info.channel_map = setting.channels;
    info.volume = setting.volume;
    info.device = setting.device.empty() ? nullptr : setting.device.c_str();
    info.mute = setting.muted;
    bool set = false;
    SoundServer::get().ask([&](pa_context* context) {
        return pa_ext_stream_restore_write(context, PA_UPDATE_REPLACE, &info, 1, 1, succeeded, &set);
    });
    return set;
}

std::optional<Setting> read(sound_type_e type, bool* late) {
    const char* entry = entryOf(type);
    return entry ? readRole(entry, late) : readLoudspeaker(late);
}

}  // namespace

bool isSoundType(sound_type_e type) {
    return std::find(std::begin(kSoundTypes), std::end(kSoundTypes), type) != std::end(kSoundTypes);
}

std::optional<int> readLevel(sound_type_e type, bool* late) {
    const auto setting = read(type, late);
    return setting ? std::optional<int>(levelOf(*setting)) : std::nullopt;
}

bool writeLevel(sound_type_e type, int level) {
    auto setting = read(type, nullptr);
    if (!setting) {
        return false;
    }
    scale(*setting, level);
    const char* entry = entryOf(type);
    return entry ? writeRole(entry, *setting) : writeLoudspeaker(*setting);
}

}  // namespace audio
