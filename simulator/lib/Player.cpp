// SPDX-License-Identifier: Apache-2.0
#include "lib/Player.h"

#include <pulse/introspect.h>
#include <pulse/proplist.h>
#include <pulse/subscribe.h>

#include <cmath>

#include "lib/Later.h"

namespace sim {

namespace {

constexpr unsigned kRetryMs = 200;
constexpr uint32_t kLatencyBytes = Player::kRate / 10 * sizeof(int16_t);

// Its result comes to the callback, or not at all.
void start(pa_operation* operation) {
    if (operation != nullptr) {
        pa_operation_unref(operation);
    }
}

struct Properties {
    explicit Properties(const std::string& role) : list(pa_proplist_new()) {
        pa_proplist_sets(list, PA_PROP_MEDIA_ROLE, role.c_str());
    }
    ~Properties() { pa_proplist_free(list); }
    Properties(const Properties&) = delete;
    Properties& operator=(const Properties&) = delete;

    pa_proplist* list;
};

}  // namespace

void Player::Release::operator()(pa_context* context) const noexcept {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
}

void Player::Release::operator()(pa_stream* stream) const noexcept {
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

Player::Player(Owner owner) : mOwner(std::move(owner)), mLoop(pa_glib_mainloop_new(nullptr)) {
    connect();
}

void Player::connect() {
    mStream.reset();
    mContext.reset(pa_context_new(pa_glib_mainloop_get_api(mLoop.get()), mOwner.application.c_str()));
    pa_context_set_state_callback(mContext.get(), onContext, this);
    pa_context_set_subscribe_callback(mContext.get(), onChange, this);
    pa_context_connect(mContext.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

void Player::want(bool plays) {
    mPlays = plays;
    if (mStream) {
        start(pa_stream_cork(
            mStream.get(), !plays,
            [](pa_stream* stream, int success, void* self) noexcept {
                if (success != 0) {
                    static_cast<Player*>(self)->mOwner.playing(pa_stream_is_corked(stream) == 0);
                }
            },
            this));
    } else if (plays && pa_context_get_state(mContext.get()) == PA_CONTEXT_READY) {
        openStream();
    }
}

void Player::openStream() {
    const pa_sample_spec spec{PA_SAMPLE_S16LE, kRate, 1};
    const Properties properties(mOwner.role);
    const auto unset = static_cast<uint32_t>(-1);
    const pa_buffer_attr buffer{unset, kLatencyBytes, unset, unset, unset};
    mStream.reset(pa_stream_new_with_proplist(mContext.get(), "tune", &spec, nullptr, properties.list));
    pa_stream_set_state_callback(mStream.get(), onStream, this);
    pa_stream_set_write_callback(mStream.get(), onWanted, this);
    pa_stream_connect_playback(mStream.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr);
}

void Player::readVolume() {
    start(pa_context_get_sink_info_by_name(
        mContext.get(), "@DEFAULT_SINK@",
        [](pa_context*, const pa_sink_info* info, int, void* data) noexcept {
            auto& self = *static_cast<Player*>(data);
            if (info == nullptr) {
                return;
            }
            const double share = static_cast<double>(pa_cvolume_max(&info->volume)) / PA_VOLUME_NORM;
            const int percent = info->mute != 0 ? 0 : static_cast<int>(std::lround(share * 100));
            if (percent != self.mVolume) {
                self.mVolume = percent;
                self.mOwner.volume(percent);
            }
        },
        this));
}

void Player::onContext(pa_context* context, void* data) noexcept {
    auto& self = *static_cast<Player*>(data);
    const pa_context_state_t state = pa_context_get_state(context);
    if (state == PA_CONTEXT_READY) {
        start(pa_context_subscribe(context, PA_SUBSCRIPTION_MASK_SINK, nullptr, nullptr));
        self.readVolume();
        if (self.mPlays) {
            self.openStream();
        }
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        later(kRetryMs, [&self] { self.connect(); });
    }
}

void Player::onStream(pa_stream* stream, void* data) noexcept {
    auto& self = *static_cast<Player*>(data);
    if (pa_stream_get_state(stream) == PA_STREAM_READY) {
        self.want(self.mPlays);
    }
}

void Player::onWanted(pa_stream* stream, size_t bytes, void* data) noexcept {
    void* samples = nullptr;
    if (pa_stream_begin_write(stream, &samples, &bytes) == 0 && samples != nullptr) {
        static_cast<Player*>(data)->mOwner.sound(static_cast<int16_t*>(samples), bytes / sizeof(int16_t));
        pa_stream_write(stream, samples, bytes, nullptr, 0, PA_SEEK_RELATIVE);
    }
}

void Player::onChange(pa_context*, pa_subscription_event_type_t, uint32_t, void* self) noexcept {
    static_cast<Player*>(self)->readVolume();
}

}  // namespace sim
