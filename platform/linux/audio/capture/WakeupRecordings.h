// SPDX-License-Identifier: Apache-2.0
// WAV files of the sound before each wake-word detection, for tuning. They are written to the directory
// ORVANE_WAKEUP_RECORDINGS, and their names contain the time and the confidence level. Only the newest fifty are kept.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace audio {

// Empty if the variable is not set.
std::string wakeupRecordingsFolder();
// Writes a WAV file that only the owner may read. Throws std::exception on failure, for example if the file exists, and
// then leaves the directory as it was.
void writeNewFile(const std::string& path, const std::vector<int16_t>& samples, int rate);
// Blocks on the disk. Logs a failure, which leaves no file.
void writeWakeupRecording(const std::vector<int16_t>& samples, int rate, int level);

}  // namespace audio
