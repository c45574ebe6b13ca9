// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "sqlite/Database.h"

namespace localdb {

// Opens the file and creates it if it is missing. Opens a read-only file only for reading. Throws sqlite::Error, for
// example if the file is not a database.
std::unique_ptr<sqlite::Database> openFile(const std::string& file);

}  // namespace localdb
