// SPDX-License-Identifier: Apache-2.0
#include "PulseSource.h"

#include <chrono>
#include <cstring>

#include "Outage.h"
#include "process/Guard.h"
#include "pulse/Requests.h"

namespace audio {

namespace {

// The recorder's block, 16 ms. Larger fragments cost less (two blocks: 0.25 % of a core instead of 0.4 %), but the
// level, which the UI shows every 20 ms, would move only with every fragment.
constexpr std::size_t kFragmentFrames = 256;
// A source without a sound card may have rendered two seconds ahead before capture begins.
constexpr std::chrono::milliseconds kStalled{3000};
constexpr char kNoMicrophone[] = "No microphone";

std::size_t frameSize(const Format& format) {
    return sizeof(int16_t) * static_cast<std::size_t>(format.channels);
}

std::string ofServer(const std::string& why) {
    return "sound server: " + why;
}

}  // namespace

PulseSource::PulseSource(const Format& format)
    : mFormat(format), mQueue(frameSize(format) * static_cast<std::size_t>(format.rate)) {
    try {
        process::shared<MicrophoneKey>().add(*this);
        process::shared<SoundServer>().add(*this);
    } catch (...) {
        end();
        throw;
    }
}

// When the process exits, the connection is already closed, and the stream with it.
PulseSource::~PulseSource() {
    end();
}

void PulseSource::end() noexcept {
    process::contained("end of capture", [this] {
        process::shared<MicrophoneKey>().remove(*this);
        auto& server = process::shared<SoundServer>();
        const pulse::Mainloop::Lock lock(server.loop());
        server.remove(*this);
        close();
    });
}

bool PulseSource::read(int16_t* samples, std::size_t frames) {
    auto& outage = process::shared<Outage>();
    char* out = reinterpret_cast<char*>(samples);
    const std::size_t bytes = frames * frameSize(mFormat);
    if (mOff) {
        return readSilence(out, bytes);
    }
    const bool wasFlowing = mFlowing;
    SampleQueue::Taken taken = mQueue.take(out, bytes, wasFlowing ? kStalled : outage.patience());
    if (taken == SampleQueue::Taken::TimedOut && !wasFlowing && mFlowing) {
        taken = mQueue.take(out, bytes, kStalled);
    }
    if (taken == SampleQueue::Taken::All) {
        outage.ended();
        return true;
    }
    if (mOff) {
        return readSilence(out, bytes);
    }
    if (!mInterrupted) {
        logFailure();
    }
    return false;
}

bool PulseSource::readSilence(char* out, std::size_t bytes) {
    const std::size_t second = frameSize(mFormat) * static_cast<std::size_t>(mFormat.rate);
    if (mQueue.take(out, bytes, std::chrono::milliseconds(1000 * bytes / second)) != SampleQueue::Taken::All) {
        std::memset(out, 0, bytes);
    }
    return !mInterrupted;
}

void PulseSource::logFailure() {
    auto& server = process::shared<SoundServer>();
    std::string why;
    {
        const pulse::Mainloop::Lock lock(server.loop());
        why = mWhy;
    }
    if (why.empty()) {
        why = ofServer(server.connected() ? "the sound source delivers no samples" : server.error());
    }
    process::shared<Outage>().began(why);
}

void PulseSource::interrupt() noexcept {
    mInterrupted = true;
    mQueue.end();
}

void PulseSource::connected(pulse::Context& context) noexcept {
    mContext = &context;
    mWhy.clear();
    mByName = false;
    search();
}

void PulseSource::lost() noexcept {
    mContext = nullptr;
    close();
    streamFailed(ofServer("lost the connection"));
}

void PulseSource::keyChanged(bool off) noexcept {
    if (mOff.exchange(off) == off) {
        return;
    }
    if (off) {
        close();
        mQueue.breakOff();
    } else {
        mQueue.resume();
        mFlowing = mContext != nullptr;
        search();
    }
}

void PulseSource::close() noexcept {
    mQuestion = {};
    mStream.reset();
}

void PulseSource::search() noexcept {
    if (!mContext || mOff) {
        return;
    }
    process::contained("microphone search", [&] {
        mQuestion = pulse::findMicrophone(*mContext, [this](const std::string& name) {
            if (name.empty()) {
                streamFailed(kNoMicrophone);
            } else {
                open(name);
            }
        });
    });
}

void PulseSource::open(const std::string& microphone) noexcept {
    mVerified = false;
    pulse::RecordStream::Events events;
    events.ready = [this] { verify(); };
    events.moved = [this] { verify(); };
    events.data = [this](const void* data, std::size_t bytes) {
        if (mVerified) {
            mQueue.push(static_cast<const char*>(data), bytes);
        }
    };
    events.failed = [this](const char* why) { streamFailed(ofServer(why)); };
    const pulse::RecordStream::Settings settings{"microphone", mByName ? microphone.c_str() : nullptr, mFormat.rate,
                                                 mFormat.channels, kFragmentFrames * frameSize(mFormat)};
    try {
        mStream = std::make_unique<pulse::RecordStream>(*mContext, settings, std::move(events));
    } catch (const std::exception& fault) {
        streamFailed(ofServer(fault.what()));
    }
}

void PulseSource::verify() noexcept {
    mVerified = false;
    process::contained("microphone check", [&] {
        mQuestion =
            pulse::checkMicrophone(*mContext, mStream->source(), [this](bool microphone) { verified(microphone); });
    });
}

void PulseSource::verified(bool microphone) noexcept {
    mVerified = microphone;
    if (microphone) {
        mByName = false;
        mFlowing = true;
        return;
    }
    mStream.reset();
    if (mByName) {
        streamFailed(kNoMicrophone);
    } else {
        mByName = true;
        search();
    }
}

// If the stream never delivered frames, the reader keeps waiting, because the server may return before its timeout.
void PulseSource::streamFailed(const std::string& why) noexcept {
    mWhy = why;
    if (mFlowing.exchange(false)) {
        mQueue.breakOff();
    }
}

}  // namespace audio
