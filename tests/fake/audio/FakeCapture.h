// SPDX-License-Identifier: Apache-2.0
// Audio input and the speech capture library.
#pragma once

#include <vector>

namespace fake {

// The result of the next read: samples, or a failure. When the queue is empty, a read takes 1 ms and returns silence.
void queueSamples(const std::vector<short>& samples);
void queueReadResult(int result);

}  // namespace fake
