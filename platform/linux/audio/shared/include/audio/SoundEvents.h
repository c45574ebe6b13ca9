// SPDX-License-Identifier: Apache-2.0
// Hears from the sound server that something has changed, by whomever, and has it looked at on the sound thread.
// However many changes come at once, they are looked at together.
#pragma once

#include <atomic>
#include <functional>

#include "audio/SoundServer.h"

namespace audio {

class SoundEvents final : private SoundServer::Client {
public:
    // Lives until the process ends: nothing is heard before the first call.
    static SoundEvents& get();

    // `look` runs on the sound thread soon and after each change, also when the server has come or gone. When it
    // returns false, because the server was too slow, it runs again a little later. Once each, before any change is to
    // be heard.
    using Looking = std::function<bool()>;
    void volumes(Looking look) { mVolumes.set(std::move(look)); }
    void playback(Looking look) { mPlayback.set(std::move(look)); }

private:
    class Look {
    public:
        void set(Looking look);
        void soon();

    private:
        std::mutex mMutex;
        Looking mLook;
        std::atomic<bool> mPending{false};
    };

    SoundEvents() { SoundServer::get().add(*this); }
    void connected(pa_context* context) noexcept override;
    void lost() noexcept override;
    static void changed(pa_context* context, pa_subscription_event_type_t what, uint32_t index, void* self) noexcept;
    static void levelsChanged(pa_context* context, void* self) noexcept;

    Look mVolumes;
    Look mPlayback;
};

}  // namespace audio
