// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace sphinxmemory {

// From now on, PocketSphinx can allocate this many blocks of memory on all threads together. Negative: no limit.
void limit(long blocks);
// Whether the limit has been reached.
bool isOut();

}  // namespace sphinxmemory
