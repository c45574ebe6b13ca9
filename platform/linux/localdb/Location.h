// SPDX-License-Identifier: Apache-2.0
// Where databases lie: ORVANE_DB_DIR, else $XDG_DATA_HOME/orvane-da/db, one file a database, NAME.db.
#pragma once

#include <string>

namespace localdb {

// Not empty, at most 200 bytes, no control character and no slash, no dot in front; not of SQLite's own.
bool isValidName(const std::string& name);

// The database's file; its folder is there afterwards. Throws std::runtime_error.
std::string fileOf(const std::string& name);

}  // namespace localdb
