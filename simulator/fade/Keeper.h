// SPDX-License-Identifier: Apache-2.0
#pragma once

// Instead of a level: nothing to restore.
inline constexpr int kNoLevel = -1;

// Starts a child process, the keeper, and returns a connection to it. Each message is a level as an int. When the
// connection ends, the keeper restores the last level. Call this before the process starts any thread. Throws
// std::runtime_error.
int startKeeper();
