// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vconf.h>

#include <string>

#include "gio/GPointer.h"

// A value as a subscriber receives it.
struct keynode_s {
    int type = 0;  // VCONF_TYPE_*; 0 if the key has no value or one of an unsupported type
    int number = 0;
    double real = 0;
    std::string text;
};

namespace settings {

keynode_s nodeOf(GVariant* value);  // null: the key has no value

}  // namespace settings
