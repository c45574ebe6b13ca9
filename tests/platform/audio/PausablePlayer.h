// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "pulse/Context.h"
#include "pulse/Mainloop.h"
#include "pulse/PlaybackStream.h"

// A program "jukebox" that plays on the sound server and can be paused.
class PausablePlayer {
public:
    PausablePlayer() {
        const pulse::Mainloop::Lock lock(mLoop);
        mContext = std::make_unique<pulse::Context>(mLoop.api(), "jukebox",
                                                    [this](pulse::Context::State state) { start(state); });
        mContext->connect();
    }
    ~PausablePlayer() {
        const pulse::Mainloop::Lock lock(mLoop);
        mStream.reset();
        mContext.reset();
    }
    PausablePlayer(const PausablePlayer&) = delete;
    PausablePlayer& operator=(const PausablePlayer&) = delete;

    // Returns when it plays.
    void pause(bool paused) {
        pulse::Operation operation;
        {
            const pulse::Mainloop::Lock lock(mLoop);
            operation = mStream->pause(paused, [](bool) {});
        }
        pulse::finish(mLoop, std::move(operation), std::chrono::seconds(5));
    }

private:
    void start(pulse::Context::State state) {
        if (state == pulse::Context::State::Ready) {
            const pulse::PlaybackStream::Settings settings{"song", "", 16000, 100};
            mStream = std::make_unique<pulse::PlaybackStream>(*mContext, settings, pulse::PlaybackStream::Events());
        }
    }

    pulse::Mainloop mLoop{"player"};
    std::unique_ptr<pulse::Context> mContext;
    std::unique_ptr<pulse::PlaybackStream> mStream;
};
