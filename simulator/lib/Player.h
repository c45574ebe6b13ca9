// SPDX-License-Identifier: Apache-2.0
// A sound that plays without end on the default loudspeaker, and that loudspeaker's volume. Everything on the thread of
// the default main context. When the sound server goes away the player waits for it and plays on.
#pragma once

#include <pulse/context.h>
#include <pulse/glib-mainloop.h>
#include <pulse/stream.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace sim {

class Player {
public:
    struct Owner {
        std::string application;
        std::string role;  // of the sound server's: music, video, a11y, ...
        std::function<void(int16_t* samples, std::size_t count)> sound;  // the next samples, kRate mono
        std::function<void(bool plays)> playing;                         // the server has begun, or paused
        std::function<void(int percent)> volume;  // of the loudspeaker, at first and when it moves
    };
    static constexpr unsigned kRate = 16000;

    // Lives until the process ends.
    explicit Player(Owner owner);

    void play() { want(true); }
    void pause() { want(false); }

private:
    struct Release {
        void operator()(pa_glib_mainloop* loop) const noexcept { pa_glib_mainloop_free(loop); }
        void operator()(pa_context* context) const noexcept;
        void operator()(pa_stream* stream) const noexcept;
    };

    void connect();
    void want(bool plays);
    void openStream();
    void readVolume();
    static void onContext(pa_context* context, void* self) noexcept;
    static void onStream(pa_stream* stream, void* self) noexcept;
    static void onWanted(pa_stream* stream, size_t bytes, void* self) noexcept;
    static void onChange(pa_context* context, pa_subscription_event_type_t type, uint32_t index, void* self) noexcept;

    Owner mOwner;
    bool mPlays = false;
    int mVolume = -1;
    std::unique_ptr<pa_glib_mainloop, Release> mLoop;
    std::unique_ptr<pa_context, Release> mContext;
    std::unique_ptr<pa_stream, Release> mStream;
};

}  // namespace sim
