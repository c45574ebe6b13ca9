// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace sim {

// Writes the settings of an appliance in the United States whose setup is complete and whose microphone is on. Throws
// std::runtime_error.
void writeFactorySettings();

}  // namespace sim
