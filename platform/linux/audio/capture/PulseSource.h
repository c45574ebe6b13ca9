// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "CaptureSource.h"
#include "MicrophoneKey.h"
#include "SampleQueue.h"
#include "audio/SoundServer.h"
#include "pulse/RecordStream.h"

namespace audio {

// Captures from the sound server. The server's thread fills the queue, and the reader empties it. Opening never waits
// for the server; if it is missing, a read waits briefly and then fails. When the connection breaks, a read in progress
// fails immediately. The source opens a new stream when the connection returns.
//
// It captures only from a microphone. Without one, the server offers the monitor of a loudspeaker as its default
// source, and moves streams to it when their microphone is unplugged. So the source searches for a microphone before it
// opens the stream, and verifies the stream's own source when it is open or moved; frames that arrive before the answer
// are dropped. If the stream captures from a monitor, the source replaces it with a stream from the microphone that the
// search finds.
//
// A source that is destroyed before the first answer requests no stream, so retries do not pile up at a server that
// does not answer.
//
// While the microphone key is off, the source has no stream, and reads return silence at the pace of a microphone.
class PulseSource : public CaptureSource, private SoundServer::Client, private MicrophoneKey::Listener {
public:
    explicit PulseSource(const Format& format);
    ~PulseSource() override;

    bool read(int16_t* samples, std::size_t frames) override;
    void interrupt() noexcept override;

private:
    void connected(pulse::Context& context) noexcept override;
    void lost() noexcept override;
    void keyChanged(bool off) noexcept override;
    bool readSilence(char* out, std::size_t bytes);
    void search() noexcept;
    void close() noexcept;
    void end() noexcept;
    void open(const std::string& microphone) noexcept;
    void verify() noexcept;
    void verified(bool microphone) noexcept;
    void streamFailed(const std::string& why) noexcept;
    void logFailure();

    const Format mFormat;
    SampleQueue mQueue;
    // Under the loop's lock.
    const pulse::Context* mContext = nullptr;  // null while the server is missing
    std::unique_ptr<pulse::RecordStream> mStream;
    pulse::Operation mQuestion;  // the search or the verification in progress
    bool mVerified = false;
    bool mByName = false;  // the last stream captured from a monitor
    std::string mWhy;

    std::atomic<bool> mOff{false};      // the microphone key
    std::atomic<bool> mFlowing{false};  // frames arrive, or will arrive soon
    std::atomic<bool> mInterrupted{false};
};

}  // namespace audio
