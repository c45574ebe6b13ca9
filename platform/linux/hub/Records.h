// SPDX-License-Identifier: Apache-2.0
// Lists of fixed-size records that are handed out to C.
#pragma once

#include <glib.h>

#include <vector>

#include "Answers.h"

namespace hub {

// The longest beginning of a text that fits into `bytes` with its end and cuts no UTF-8 character in two.
std::size_t lengthThatFits(const std::string& text, std::size_t bytes);

// Lists of malloc'ed ks_family_s and ks_family_user_s, the caller's. Throw std::bad_alloc.
GSList* makeFamilies(const std::vector<Named>& families);
GSList* makeUsers(const std::vector<Named>& users);

}  // namespace hub
