// SPDX-License-Identifier: Apache-2.0
// Records a source of the appliance's sound server, 16 kHz mono, into a file.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "appliance/Appliance.h"

class RawRecording {
public:
    RawRecording(const sim::Appliance& appliance, const std::string& source)
        : mFile(appliance.folder() / (source + ".raw")),
          mRecorder({"parec", "--raw", "--latency-msec=20", "--rate=16000", "--channels=1", "--format=s16le",
                     "--device=" + source, mFile},
                    appliance.folder() / "parec.log") {}

    // Waits until at least so many samples have been recorded.
    void await(std::size_t samples) const {
        sim::until("the recorder has recorded", [&] {
            return std::filesystem::exists(mFile) && std::filesystem::file_size(mFile) >= samples * sizeof(int16_t);
        });
    }
    // How many samples are louder than this.
    int loudSamples(int amplitude) const {
        std::ifstream file(mFile, std::ios::binary);
        int count = 0;
        for (int16_t sample = 0; file.read(reinterpret_cast<char*>(&sample), sizeof sample);) {
            count += std::abs(static_cast<int>(sample)) > amplitude ? 1 : 0;
        }
        return count;
    }

private:
    std::string mFile;
    sim::Process mRecorder;
};
