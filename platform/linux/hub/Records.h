// SPDX-License-Identifier: Apache-2.0
// Lists of fixed-size records for C.
#pragma once

#include <glib.h>

#include <vector>

#include "Replies.h"

namespace hub {

// The length of the longest prefix that fits into `bytes` with its terminator and does not split a UTF-8 character.
std::size_t lengthThatFits(const std::string& text, std::size_t bytes);

// Make lists of ks_family_s and ks_family_user_s, allocated with malloc(). The caller owns the lists and the records.
// Throw std::bad_alloc.
GSList* makeFamilies(const std::vector<Named>& families);
GSList* makeUsers(const std::vector<Named>& users);

}  // namespace hub
