// SPDX-License-Identifier: Apache-2.0
// The sound that led to each wake-up, for those who tune the wake-up word: WAV files in the folder that
// ORVANE_WAKEUP_RECORDINGS names, called by time and confidence level. The newest fifty are kept.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace audio {

// Empty when nothing is to be kept.
std::string wakeupRecordingsFolder();
// Blocks on the disk. A failure is one line in the log and leaves no file.
void writeWakeupRecording(const std::vector<int16_t>& samples, int rate, int level);

}  // namespace audio
