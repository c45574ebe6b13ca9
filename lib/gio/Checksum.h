// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>

#include <string>
#include <string_view>

#include "gio/GPointer.h"

namespace gio {

// The SHA-256 of the bytes, as 64 hexadecimal digits.
inline std::string sha256(std::string_view bytes) {
    const Text digits(
        g_compute_checksum_for_data(G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()), bytes.size()));
    return digits.get();
}

}  // namespace gio
