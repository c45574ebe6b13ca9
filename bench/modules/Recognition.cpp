// SPDX-License-Identifier: Apache-2.0
// How many seconds of spoken commands are recognized per second of processor time.
#include <appliance/sound/Speech.h>
#include <time.h>
#include <tzplatform_config.h>

#include <stdexcept>
#include <vector>

#include "modules/Measures.h"
#include "sndfile/SoundFile.h"
#include "voice/Engine.h"

namespace bench {

namespace {

constexpr const char* kVoices[] = {"slt", "awb", "rms", "kal16"};
constexpr const char* kSentences[] = {"open the music player", "go to home screen", "show me the recipe for apple pie",
                                      "search for apple pie", "what is the weather today"};
constexpr std::size_t kPiece = 1024;  // samples passed at once
constexpr double kRate = 16000;

std::string dataPath(const char* path) {
    return tzplatform_mkpath(TZPLATFORM_DATA_ROOT, path);
}

std::shared_ptr<voice::Engine> loadEnglish() {
    for (const voice::Language& language : voice::installedLanguages(dataPath("voice/data/languages.json"))) {
        if (language.id == "en_US") {
            if (auto engine = voice::loadEngine(language, dataPath("voice/data/preloaded_commands.txt"))) {
                return engine;
            }
        }
    }
    throw std::runtime_error("no recognizer for en_US");
}

std::vector<int16_t> samplesOf(const std::string& wav) {
    sndfile::Reader reader(wav);
    std::vector<float> sound(static_cast<std::size_t>(reader.frames()));
    sound.resize(reader.read(sound.data(), sound.size()));
    std::vector<int16_t> samples;
    for (const float value : sound) {
        samples.push_back(static_cast<int16_t>(value * 32767));
    }
    return samples;
}

double threadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Fetches the partial result after every piece, as the voice manager does.
std::string recognize(voice::Recognizer& recognizer, const std::vector<int16_t>& samples) {
    recognizer.begin();
    for (std::size_t at = 0; at < samples.size(); at += kPiece) {
        recognizer.accept(samples.data() + at, std::min(kPiece, samples.size() - at));
        recognizer.partial();
    }
    return recognizer.finish();
}

}  // namespace

void measureRecognition(sim::Appliance& appliance, Figures& figures) {
    const auto engine = loadEnglish();
    for (const char* voice : kVoices) {
        for (const char* sentence : kSentences) {
            const auto samples = samplesOf(sim::speak(appliance.folder(), sentence, voice));
            const double begun = threadSeconds();
            const std::string text = recognize(*engine->recognizer, samples);
            const double used = threadSeconds() - begun;
            figures.add("speech recognized s/s", static_cast<double>(samples.size()) / kRate / used);
            figures.add("sentences recognized", text.empty() ? 0 : 1);
        }
    }
}

}  // namespace bench
