// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "CaptureSource.h"
#include "SampleQueue.h"
#include "audio/SoundServer.h"
#include "pulse/RecordStream.h"

namespace audio {

// Captures from the sound server. The server's thread fills the queue, and the reader empties it. Opening never waits
// for the server; if it is missing, a read waits briefly and then fails. When the connection breaks, a read in progress
// fails immediately. The source opens a new stream when the connection returns.
class PulseSource : public CaptureSource, private SoundServer::Client {
public:
    explicit PulseSource(const Format& format);
    ~PulseSource() override;

    bool read(int16_t* samples, std::size_t frames) override;
    void interrupt() noexcept override;

private:
    void connected(pulse::Context& context) noexcept override;
    void lost() noexcept override;
    void open(const pulse::Context& context);
    void streamFailed(const char* why);
    void logFailure();

    const Format mFormat;
    SampleQueue mQueue;
    std::unique_ptr<pulse::RecordStream> mStream;  // under the loop's lock
    std::string mWhy;                              // under the loop's lock
    std::atomic<bool> mFlowing{false};
    std::atomic<bool> mInterrupted{false};
};

}  // namespace audio
