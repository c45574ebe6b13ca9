// SPDX-License-Identifier: Apache-2.0
// WAV files of what was captured before each wake-word detection, for tuning. They lie in the folder that
// ORVANE_WAKEUP_RECORDINGS names, and their names contain the time and the confidence level. The newest fifty are kept.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace audio {

// Empty when the variable is not set.
std::string wakeupRecordingsFolder();
// Blocks on the disk. A failure is one line in the log and leaves no file.
void writeWakeupRecording(const std::vector<int16_t>& samples, int rate, int level);

}  // namespace audio
