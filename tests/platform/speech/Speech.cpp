// SPDX-License-Identifier: Apache-2.0
#include "Speech.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <stdexcept>

#include "sndfile/SoundFile.h"

namespace speech {

namespace {

class TempFile {
public:
    TempFile() {
        mPath = (std::filesystem::temp_directory_path() / "speech-XXXXXX.wav").string();
        const int descriptor = mkstemps(mPath.data(), 4);
        if (descriptor < 0) {
            throw std::runtime_error("cannot create a temporary file");
        }
        ::close(descriptor);
    }
    ~TempFile() { std::filesystem::remove(mPath); }
    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

void run(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    int status = -1;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error(words[0] + " fails");
    }
}

Samples loadWav(const std::string& path) {
    sndfile::Reader file(path);
    if (file.rate() != 16000 || file.channels() != 1) {
        throw std::runtime_error(path + " does not have 16 kHz and one channel");
    }
    std::vector<float> read(static_cast<std::size_t>(file.frames()));
    read.resize(file.read(read.data(), read.size()));
    Samples samples(read.size());
    std::transform(read.begin(), read.end(), samples.begin(),
                   [](float sample) { return static_cast<int16_t>(std::lround(sample * 32768)); });
    return samples;
}

}  // namespace

const Samples& say(const std::string& voice, const std::string& text) {
    static std::map<std::pair<std::string, std::string>, Samples> spoken;
    const auto [entry, isNew] = spoken.try_emplace({voice, text});
    if (isNew) {
        const TempFile file;
        run({"flite", "-voice", voice, "-t", text, "-o", file.path()});
        entry->second = loadWav(file.path());
    }
    return entry->second;
}

Samples silence(double seconds) {
    return Samples(static_cast<std::size_t>(seconds * 16000));
}

Samples noise(double seconds, int peak) {
    std::minstd_rand random(1);
    std::uniform_int_distribution<int> level(-peak, peak);
    Samples samples = silence(seconds);
    for (int16_t& sample : samples) {
        sample = static_cast<int16_t>(level(random));
    }
    return samples;
}

Samples join(const std::vector<Samples>& parts) {
    Samples all;
    for (const Samples& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

}  // namespace speech
