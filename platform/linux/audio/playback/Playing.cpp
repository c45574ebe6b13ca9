// SPDX-License-Identifier: Apache-2.0
#include "audio/Playing.h"

#include <cstring>

#include "audio/SoundServer.h"

namespace audio {

namespace {

struct Role {
    const char* name;
    sound_stream_focus_change_reason_e reason;
};

// Music, video, games and streams that do not say what they are: media.
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

sound_stream_focus_change_reason_e reasonOf(const char* role) {
    for (const Role& known : kRoles) {
        if (role && std::strcmp(known.name, role) == 0) {
            return known.reason;
        }
    }
    return SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
}

struct Question {
    Playing playing;
    bool answered;
};

void add(pa_context*, const pa_sink_input_info* stream, int end, void* data) noexcept {
    auto* question = static_cast<Question*>(data);
    if (!stream) {
        question->answered = end > 0;
        return;
    }
    // A stream without a client is the server's own plumbing between devices.
    if (!stream->corked && stream->client != PA_INVALID_INDEX) {
        const char* name = pa_proplist_gets(stream->proplist, PA_PROP_APPLICATION_NAME);
        const char* role = pa_proplist_gets(stream->proplist, PA_PROP_MEDIA_ROLE);
        question->playing.emplace(reasonOf(role), name ? name : "");
    }
}

}  // namespace

std::optional<Playing> whatPlays(bool* late) {
    Question question{{}, false};
    SoundServer::get().ask(
        [&](pa_context* context) { return pa_context_get_sink_input_info_list(context, add, &question); }, late);
    return question.answered ? std::optional<Playing>(std::move(question.playing)) : std::nullopt;
}

}  // namespace audio
