// SPDX-License-Identifier: Apache-2.0
#include "appliance/Speech.h"

#include <sndfile.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

#include "appliance/Process.h"

namespace sim {

namespace {

constexpr int kRate = 16000;
constexpr float kPeak = 0.5F;
constexpr float kNoise = 0.001F;
// Of the stairs, in samples; a step is what the level is of.
constexpr std::size_t kStep = 256;
constexpr std::size_t kSteps = 8;
constexpr std::size_t kHalfPeriod = 16;
constexpr float kLoudestStep = 0.6F;

struct SoundClose {
    void operator()(SNDFILE* file) const noexcept { sf_close(file); }
};
using Sound = std::unique_ptr<SNDFILE, SoundClose>;

std::vector<float> read(const std::string& path) {
    SF_INFO info{};
    const Sound file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file || info.samplerate != kRate || info.channels != 1) {
        throw std::runtime_error("flite wrote no 16 kHz sound");
    }
    std::vector<float> samples(static_cast<std::size_t>(info.frames));
    sf_readf_float(file.get(), samples.data(), info.frames);
    return samples;
}

void write(const std::string& path, const std::vector<float>& samples) {
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    const Sound file(sf_open(path.c_str(), SFM_WRITE, &info));
    const auto frames = static_cast<sf_count_t>(samples.size());
    if (!file || sf_writef_float(file.get(), samples.data(), frames) != frames) {
        throw std::runtime_error("cannot write " + path);
    }
}

// Digital silence is no room.
void addNoise(std::vector<float>& sound) {
    std::mt19937 random(1);  // the same noise each time: a run can be repeated
    std::uniform_real_distribution<float> noise(-kNoise, kNoise);
    for (float& sample : sound) {
        sample += noise(random);
    }
}

std::vector<float> nothing(double seconds) {
    return std::vector<float>(static_cast<std::size_t>(seconds * kRate), 0.0F);
}

// A breath before and after, one loudness for all voices, and noise.
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
        throw std::runtime_error("flite cannot say \"" + text + "\" in the voice " + voice);
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
        throw std::runtime_error("there is no file " + path + (fault ? ": " + fault.message() : ""));
    }
    SF_INFO info{};
    if (!Sound(sf_open(path.c_str(), SFM_READ, &info))) {
        throw std::runtime_error(path + " is no sound that can be played: " + sf_strerror(nullptr));
    }
}

}  // namespace sim
