// SPDX-License-Identifier: Apache-2.0
// Captures from the sound server. The server's thread fills the queue, the reader empties it. Opening never waits for
// the server: while there is none, a read waits a little for one to come and then fails, and when the server goes a
// read in progress fails at once. The source finds the server again by itself, and so does a new one.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "CaptureSource.h"
#include "SampleQueue.h"
#include "audio/SoundServer.h"
#include "pulse/RecordStream.h"

namespace audio {

class PulseSource : public CaptureSource, private SoundServer::Client {
public:
    explicit PulseSource(const Format& format);
    ~PulseSource() override;

    bool read(int16_t* samples, std::size_t frames) override;
    void interrupt() noexcept override;

private:
    void connected(pa_context* context) noexcept override;
    void lost() noexcept override;
    void streamFailed(const char* why);
    bool fail();

    const pa_sample_spec mSpec;
    SampleQueue mQueue;
    std::unique_ptr<pulse::RecordStream> mStream;  // under the loop's lock
    std::string mWhy;                              // under the loop's lock
    std::atomic<bool> mFlowing{false};
    std::atomic<bool> mInterrupted{false};
};

}  // namespace audio
