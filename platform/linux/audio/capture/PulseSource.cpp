// SPDX-License-Identifier: Apache-2.0
#include "PulseSource.h"

#include <chrono>
#include <stdexcept>

#include "Outage.h"

namespace audio {

namespace {

// One block of the recorder's, 16 ms. Larger ones cost less (two blocks a fragment: 0.25 % of a core instead of 0.4 %),
// but the level, which the UI shows every 20 ms, would move only with every fragment.
constexpr std::size_t kFragmentFrames = 256;
// A source without a sound card may have rendered two seconds ahead before it is listened to.
constexpr std::chrono::milliseconds kStalled{3000};

pa_sample_spec specOf(const Format& format) {
    return {PA_SAMPLE_S16LE, static_cast<uint32_t>(format.rate), static_cast<uint8_t>(format.channels)};
}

}  // namespace

PulseSource::PulseSource(const Format& format) : mSpec(specOf(format)), mQueue(pa_bytes_per_second(&mSpec)) {
    SoundServer::get().add(*this);
}

PulseSource::~PulseSource() {
    SoundServer& server = SoundServer::get();
    const pulse::Mainloop::Lock lock(server.loop());
    server.remove(*this);
    mStream.reset();
}

bool PulseSource::read(int16_t* samples, std::size_t frames) {
    char* out = reinterpret_cast<char*>(samples);
    const std::size_t bytes = frames * pa_frame_size(&mSpec);
    const bool wasFlowing = mFlowing;
    SampleQueue::Taken taken = mQueue.take(out, bytes, wasFlowing ? kStalled : Outage::capture().patience());
    if (taken == SampleQueue::Taken::TimedOut && !wasFlowing && mFlowing) {
        taken = mQueue.take(out, bytes, kStalled);
    }
    if (taken == SampleQueue::Taken::All) {
        Outage::capture().ended();
        return true;
    }
    return fail();
}

bool PulseSource::fail() {
    if (mInterrupted) {
        return false;
    }
    std::string why;
    {
        const pulse::Mainloop::Lock lock(SoundServer::get().loop());
        why = mWhy;
    }
    if (why.empty()) {
        why = SoundServer::get().connected() ? "the sound source gives nothing" : SoundServer::get().error();
    }
    Outage::capture().began("sound server: " + why);
    return false;
}

void PulseSource::interrupt() noexcept {
    mInterrupted = true;
    mQueue.end();
}

void PulseSource::connected(pa_context* context) noexcept {
    try {
        mWhy.clear();
        pulse::RecordStream::Events events;
        events.ready = [this] { mFlowing = true; };
        events.data = [this](const void* data, std::size_t bytes) {
            mQueue.push(static_cast<const char*>(data), bytes);
        };
        events.failed = [this](const char* why) { streamFailed(why); };
        mStream = std::make_unique<pulse::RecordStream>(context, "microphone", mSpec,
                                                        kFragmentFrames * pa_frame_size(&mSpec), std::move(events));
    } catch (const std::exception& fault) {
        mWhy = fault.what();
    }
}

void PulseSource::lost() noexcept {
    streamFailed("the sound server has gone");
}

// A stream that never gave sound leaves the reader waiting: the server may come within its patience.
void PulseSource::streamFailed(const char* why) {
    mWhy = why;
    if (mFlowing.exchange(false)) {
        mQueue.breakOff();
    }
}

}  // namespace audio
