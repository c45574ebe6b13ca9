// SPDX-License-Identifier: Apache-2.0
#include "appliance/sound/Speech.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

#include "appliance/processes/Process.h"
#include "sndfile/SoundFile.h"

namespace sim {

namespace {

constexpr int kRate = 16000;
constexpr float kPeak = 0.5F;
constexpr float kNoise = 0.001F;
constexpr float kFullScale = 32767;
// The tone of stairs(), in samples. Each step is one block, so it has one level.
constexpr std::size_t kStep = 256;
constexpr std::size_t kSteps = 8;
constexpr std::size_t kHalfPeriod = 16;
constexpr float kLoudestStep = 0.6F;

std::vector<float> read(const std::string& path) {
    sndfile::Reader file(path);
    if (file.rate() != kRate || file.channels() != 1) {
        throw std::runtime_error("flite did not write a mono sound file with 16 kHz");
    }
    std::vector<float> samples(static_cast<std::size_t>(file.frames()));
    samples.resize(file.read(samples.data(), samples.size()));
    return samples;
}

void write(const std::string& path, const std::vector<float>& sound) {
    std::vector<int16_t> samples(sound.size());
    std::transform(sound.begin(), sound.end(), samples.begin(),
                   [](float sample) { return static_cast<int16_t>(std::lround(sample * kFullScale)); });
    sndfile::writeWav(path, kRate, 1, samples.data(), samples.size());
}

// A real room is never digitally silent.
void addNoise(std::vector<float>& sound) {
    std::mt19937 random(1);  // a fixed seed, so that runs are repeatable
    std::uniform_real_distribution<float> noise(-kNoise, kNoise);
    for (float& sample : sound) {
        sample += noise(random);
    }
}

std::vector<float> nothing(double seconds) {
    return std::vector<float>(static_cast<std::size_t>(seconds * kRate), 0.0F);
}

// Adds a pause before and after, gives all voices the same loudness, and adds noise.
std::vector<float> inRoom(const std::vector<float>& voice) {
    std::vector<float> sound(voice.size() + kRate / 2, 0.0F);
    float peak = 0.01F;
    for (const float sample : voice) {
        peak = std::max(peak, std::abs(sample));
    }
    std::transform(voice.begin(), voice.end(), sound.begin() + kRate / 5,
                   [peak](float sample) { return sample / peak * kPeak; });
    addNoise(sound);
    return sound;
}

}  // namespace

std::string speak(const Folder& folder, const std::string& text, const std::string& voice) {
    const std::string path =
        folder / ("speech-" + std::to_string(std::hash<std::string>()(voice + "/" + text)) + ".wav");
    if (std::filesystem::exists(path)) {
        return path;
    }
    Process flite({"flite", "-voice", voice, "-t", text, "-o", path}, folder / "flite.log");
    if (flite.wait() != 0) {
        throw std::runtime_error("flite cannot speak \"" + text + "\" with the voice " + voice);
    }
    write(path, inRoom(read(path)));
    return path;
}

std::string silence(const Folder& folder, double seconds) {
    std::vector<float> sound = nothing(seconds);
    addNoise(sound);
    const std::string path = folder / "silence.wav";
    write(path, sound);
    return path;
}

std::string stairs(const Folder& folder, double seconds) {
    std::vector<float> sound = nothing(seconds);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float amplitude = kLoudestStep / static_cast<float>(1 << (i / kStep % kSteps));
        sound[i] = i / kHalfPeriod % 2 == 0 ? amplitude : -amplitude;
    }
    const std::string path = folder / "stairs.wav";
    write(path, sound);
    return path;
}

void requireSound(const std::string& path) {
    if (std::error_code fault; !std::filesystem::exists(path, fault)) {
        throw std::runtime_error("the file " + path + " does not exist" + (fault ? ": " + fault.message() : ""));
    }
    try {
        const sndfile::Reader file(path);
    } catch (const std::exception& fault) {
        throw std::runtime_error(path + " is not a sound file: " + fault.what());
    }
}

}  // namespace sim
