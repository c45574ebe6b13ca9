// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundEvents.h"

#include <pulse/ext-stream-restore.h>

#include "audio/SoundThread.h"
#include "gio/IoThread.h"
#include "pulse/Operation.h"

namespace audio {

namespace {

constexpr unsigned kAgainMs = 2000;

}  // namespace

SoundEvents& SoundEvents::get() {
    // Never destroyed: the server's thread may still call while the process ends.
    static SoundEvents* instance = new SoundEvents;
    return *instance;
}

void SoundEvents::Look::set(Looking look) {
    {
        std::lock_guard lock(mMutex);
        mLook = std::move(look);
    }
    soon();
}

void SoundEvents::Look::soon() {
    if (mPending.exchange(true)) {
        return;
    }
    SoundThread::get().post([this] {
        mPending = false;
        Looking look;
        {
            std::lock_guard lock(mMutex);
            look = mLook;
        }
        if (look && !look()) {
            gio::IoThread::get().postAfter(kAgainMs, [this] { soon(); });
        }
    });
}

void SoundEvents::connected(pa_context* context) noexcept {
    pa_context_set_subscribe_callback(context, changed, this);
    constexpr int KINDS = PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SINK_INPUT;
    const pulse::Operation devices(
        pa_context_subscribe(context, static_cast<pa_subscription_mask_t>(KINDS), nullptr, nullptr));
    pa_ext_stream_restore_set_subscribe_cb(context, levelsChanged, this);
    const pulse::Operation levels(pa_ext_stream_restore_subscribe(context, 1, nullptr, nullptr));
    mVolumes.soon();
    mPlayback.soon();
}

void SoundEvents::lost() noexcept {
    mPlayback.soon();
}

void SoundEvents::changed(pa_context*, pa_subscription_event_type_t what, uint32_t, void* self) noexcept {
    auto* events = static_cast<SoundEvents*>(self);
    if ((what & PA_SUBSCRIPTION_EVENT_FACILITY_MASK) == PA_SUBSCRIPTION_EVENT_SINK_INPUT) {
        events->mPlayback.soon();
    } else {
        events->mVolumes.soon();
    }
}

void SoundEvents::levelsChanged(pa_context*, void* self) noexcept {
    static_cast<SoundEvents*>(self)->mVolumes.soon();
}

}  // namespace audio
