// SPDX-License-Identifier: Apache-2.0
// The database NAME is the file NAME.db in ORVANE_DB_DIR or, if that is not set, in $XDG_DATA_HOME/orvane-da/db.
#pragma once

#include <string>

namespace localdb {

// Not empty, at most 200 bytes, no control character, no slash, no leading dot, and not reserved by SQLite.
bool isValidName(const std::string& name);

// The path of the database file. Creates its directory. Throws std::runtime_error.
std::string fileOf(const std::string& name);

}  // namespace localdb
