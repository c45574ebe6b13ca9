// SPDX-License-Identifier: Apache-2.0
#include "pulse/Requests.h"

#include <pulse/ext-stream-restore.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace pulse {

namespace {

constexpr const char* kLoudspeaker = "@DEFAULT_SINK@";
constexpr char kRoleEntry[] = "sink-input-by-media-role:";

template <typename Info>
struct List {
    std::function<void(const Info&)> each;
    Done done;
};

struct Microphone {
    std::function<void(const std::string& name)> result;
    std::string name;
};

std::string text(const char* value) {
    return value ? value : "";
}

template <typename Callback, typename Start>
Operation request(Callback callback, const Start& start) {
    auto kept = std::make_shared<Callback>(std::move(callback));
    return Operation(start(kept.get()), kept);
}

void finished(pa_context*, int success, void* done) noexcept {
    (*static_cast<Done*>(done))(success != 0);
}

void addLoudspeaker(pa_context*, const pa_sink_info* info, int, void* result) noexcept {
    if (info) {
        (*static_cast<std::function<void(const Volume&)>*>(result))({info->volume, info->channel_map, info->mute != 0});
    }
}

void addRole(pa_context*, const pa_ext_stream_restore_info* info, int end, void* data) noexcept {
    const auto& list = *static_cast<List<RoleVolume>*>(data);
    if (!info) {
        list.done(end > 0);
        return;
    }
    const std::string entry = info->name;
    if (entry.rfind(kRoleEntry, 0) == 0 && pa_cvolume_valid(&info->volume)) {
        list.each({entry.substr(sizeof kRoleEntry - 1),
                   {info->volume, info->channel_map, info->mute != 0},
                   text(info->device)});
    }
}

void addPlayback(pa_context*, const pa_sink_input_info* info, int end, void* data) noexcept {
    const auto& list = *static_cast<List<PlaybackInfo>*>(data);
    if (!info) {
        list.done(end > 0);
        return;
    }
    list.each({text(pa_proplist_gets(info->proplist, PA_PROP_APPLICATION_NAME)),
               text(pa_proplist_gets(info->proplist, PA_PROP_MEDIA_ROLE)), info->corked != 0,
               info->client == PA_INVALID_INDEX});
}

void addMicrophone(pa_context*, const pa_source_info* info, int, void* data) noexcept {
    auto& microphone = *static_cast<Microphone*>(data);
    if (!info) {
        const Microphone found = std::move(microphone);
        found.result(found.name);
    } else if (info->monitor_of_sink == PA_INVALID_INDEX) {
        microphone.name = info->name;
    }
}

// PulseAudio's own variable.
const char* chosenSource() {
    const char* name = std::getenv("PULSE_SOURCE");
    return name ? name : "@DEFAULT_SOURCE@";
}

}  // namespace

Operation readLoudspeaker(const Context& context, std::function<void(const Volume&)> result) {
    return request(std::move(result), [&](void* data) {
        return pa_context_get_sink_info_by_name(context.get(), kLoudspeaker, addLoudspeaker, data);
    });
}

Operation writeLoudspeakerVolume(const Context& context, const Volume& volume, Done done) {
    return request(std::move(done), [&](void* data) {
        return pa_context_set_sink_volume_by_name(context.get(), kLoudspeaker, &volume.volume(), finished, data);
    });
}

Operation writeLoudspeakerMute(const Context& context, bool muted, Done done) {
    return request(std::move(done), [&](void* data) {
        return pa_context_set_sink_mute_by_name(context.get(), kLoudspeaker, muted, finished, data);
    });
}

Operation readRoleVolumes(const Context& context, std::function<void(const RoleVolume&)> each, Done done) {
    return request(List<RoleVolume>{std::move(each), std::move(done)},
                   [&](void* data) { return pa_ext_stream_restore_read(context.get(), addRole, data); });
}

Operation writeRoleVolume(const Context& context, const RoleVolume& role, Done done) {
    const std::string entry = kRoleEntry + role.role;
    pa_ext_stream_restore_info info{};
    info.name = entry.c_str();
    info.channel_map = role.volume.channels();
    info.volume = role.volume.volume();
    info.device = role.device.empty() ? nullptr : role.device.c_str();
    info.mute = role.volume.isMuted();
    return request(std::move(done), [&](void* data) {
        return pa_ext_stream_restore_write(context.get(), PA_UPDATE_REPLACE, &info, 1, 1, finished, data);
    });
}

Operation listPlayback(const Context& context, std::function<void(const PlaybackInfo&)> each, Done done) {
    return request(List<PlaybackInfo>{std::move(each), std::move(done)},
                   [&](void* data) { return pa_context_get_sink_input_info_list(context.get(), addPlayback, data); });
}

Operation findMicrophone(const Context& context, std::function<void(const std::string& name)> result) {
    return request(Microphone{std::move(result), ""}, [&](void* data) {
        return pa_context_get_source_info_by_name(context.get(), chosenSource(), addMicrophone, data);
    });
}

Operation checkMicrophone(const Context& context, uint32_t source, std::function<void(bool microphone)> result) {
    auto named = [result = std::move(result)](const std::string& name) { result(!name.empty()); };
    return request(Microphone{std::move(named), ""}, [&](void* data) {
        return pa_context_get_source_info_by_index(context.get(), source, addMicrophone, data);
    });
}

}  // namespace pulse
