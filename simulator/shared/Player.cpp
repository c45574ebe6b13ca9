// SPDX-License-Identifier: Apache-2.0
#include "shared/Player.h"

#include <cmath>

#include "pulse/Requests.h"
#include "shared/Later.h"

namespace sim {

namespace {

constexpr unsigned kRetryMs = 200;
constexpr unsigned kLatencyMs = 100;

}  // namespace

Player::Player(Owner owner) : mOwner(std::move(owner)) {
    connect();
}

void Player::connect() {
    mReady = false;
    mVolumeRequest = {};
    mPauseRequest = {};
    mStream.reset();
    mContext.reset();
    mContext.emplace(mLoop.api(), mOwner.application.c_str(), [this](pulse::Context::State state) { onState(state); });
    if (!mContext->connect()) {
        later(kRetryMs, [this] { connect(); });
    }
}

void Player::onState(pulse::Context::State state) {
    if (state == pulse::Context::State::Ready) {
        mReady = true;
        mContext->watch({[this] { readVolume(); }, [] {}});
        readVolume();
        if (mPlays) {
            openStream();
        }
    } else if (state == pulse::Context::State::Ended) {
        later(kRetryMs, [this] { connect(); });
    }
}

void Player::setPlaying(bool plays) {
    mPlays = plays;
    if (mStream) {
        pauseOrResume();
    } else if (plays && mReady) {
        openStream();
    }
}

void Player::openStream() {
    mStream.emplace(*mContext, pulse::PlaybackStream::Settings{"tune", mOwner.role.c_str(), kRate, kLatencyMs},
                    pulse::PlaybackStream::Events{[this] { pauseOrResume(); }, mOwner.sound});
}

// Also reports the state of a stream that already plays or pauses as requested.
void Player::pauseOrResume() {
    mPauseRequest = mStream->pause(!mPlays, [this, plays = mPlays](bool succeeded) {
        if (succeeded) {
            mOwner.playing(plays);
        }
    });
}

void Player::readVolume() {
    mVolumeRequest = pulse::readLoudspeaker(*mContext, [this](const pulse::Volume& volume) {
        const int percent = volume.isMuted() ? 0 : static_cast<int>(std::lround(volume.share() * 100));
        if (percent != mVolume) {
            mVolume = percent;
            mOwner.volume(percent);
        }
    });
}

}  // namespace sim
