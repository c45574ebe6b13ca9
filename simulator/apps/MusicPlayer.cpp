// SPDX-License-Identifier: Apache-2.0
#include "apps/MusicPlayer.h"

#include <cmath>

namespace sim {

namespace {

constexpr double kTune[] = {261.63, 329.63, 392.00, 523.25, 392.00, 329.63, 293.66, 349.23, 440.00, 349.23};
constexpr std::size_t kNotes = sizeof kTune / sizeof kTune[0];
constexpr std::size_t kNoteSamples = Player::kRate / 4;
constexpr double kAmplitude = 8000;

}  // namespace

MusicPlayer::MusicPlayer(const std::string& id)
    : Application(id),
      mPlayer({id, "music", [this](int16_t* samples, std::size_t count) { fill(samples, count); },
               [this](bool plays) { record().write(plays ? "playing" : "paused"); },
               [this](int percent) {
                   record().write("volume", {{"percent", percent}});
               }}) {}

void MusicPlayer::onLaunch(const Request&) {
    mPlayer.play();
}

void MusicPlayer::onControl(const std::string& action, const std::string& argument) {
    if (action == "play") {
        mPlayer.play();
    } else if (action == "pause") {
        mPlayer.pause();
    } else {
        Application::onControl(action, argument);
    }
}

// Each note fades out like a plucked string.
void MusicPlayer::fill(int16_t* samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i, ++mPosition) {
        const double within = static_cast<double>(mPosition % kNoteSamples);
        const double pitch = kTune[mPosition / kNoteSamples % kNotes];
        const double string = std::sin(2 * M_PI * pitch * within / Player::kRate) * (1 - within / kNoteSamples);
        samples[i] = static_cast<int16_t>(kAmplitude * string);
    }
}

}  // namespace sim
