// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace sim::hub {

// A gzip file that unpacks to about this many megabytes of zeros. It is 158 times smaller.
std::string gzipBomb(std::size_t megabytes);

}  // namespace sim::hub
