// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace sphinxmemory {

// PocketSphinx gets this many more blocks of memory, on any thread. Negative: as many as it needs.
void limit(long blocks);
// Whether the limit has been reached.
bool isOut();

}  // namespace sphinxmemory
