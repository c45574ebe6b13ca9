// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>

namespace logging {

enum class Destination { JOURNAL, STANDARD_ERROR, STANDARD_OUTPUT };

// Whether the destination may make a writer wait: a pipe, a socket, or a terminal.
bool mayBlock(Destination destination) noexcept;

// Writes as much as possible without waiting for a reader, and returns how many bytes that is. A message to the journal
// is written as a whole or not at all. A write that fails for any other reason counts as complete, because the failure
// cannot be logged.
std::size_t writeNow(Destination destination, std::string_view bytes) noexcept;

}  // namespace logging
