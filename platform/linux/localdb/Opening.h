// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "sqlite/Database.h"

namespace localdb {

// Opens the file, and creates it if it is missing. A file that cannot be written is opened for reading. Throws
// sqlite::Error, also if the file is not a database.
std::unique_ptr<sqlite::Database> openFile(const std::string& file);

}  // namespace localdb
