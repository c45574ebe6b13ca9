// SPDX-License-Identifier: Apache-2.0
// A player of the sound server's that can be paused.
#pragma once

#include <memory>

#include "pulse/Context.h"
#include "pulse/Operation.h"

class PausablePlayer {
public:
    PausablePlayer() {
        const pulse::Mainloop::Lock lock(mLoop);
        mContext =
            std::make_unique<pulse::Context>(mLoop, "jukebox", [this](pa_context_state_t state) { start(state); });
        mContext->connect();
    }
    ~PausablePlayer() {
        const pulse::Mainloop::Lock lock(mLoop);
        if (mStream) {
            pa_stream_disconnect(mStream);
            pa_stream_unref(mStream);
        }
        mContext.reset();
    }
    PausablePlayer(const PausablePlayer&) = delete;
    PausablePlayer& operator=(const PausablePlayer&) = delete;

    // Once it plays.
    void pause(bool paused) {
        pulse::Operation operation;
        {
            const pulse::Mainloop::Lock lock(mLoop);
            operation.reset(pa_stream_cork(mStream, paused, nullptr, nullptr));
        }
        pulse::finish(mLoop, std::move(operation), std::chrono::seconds(5));
    }

private:
    void start(pa_context_state_t state) {
        if (state == PA_CONTEXT_READY) {
            const pa_sample_spec spec{PA_SAMPLE_S16LE, 16000, 1};
            mStream = pa_stream_new(mContext->get(), "song", &spec, nullptr);
            pa_stream_connect_playback(mStream, nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr);
        }
    }

    pulse::Mainloop mLoop{"player"};
    std::unique_ptr<pulse::Context> mContext;
    pa_stream* mStream = nullptr;
};
