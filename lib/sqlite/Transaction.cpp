// SPDX-License-Identifier: Apache-2.0
#include "sqlite/Transaction.h"

#include <sqlite3.h>

namespace sqlite {

// IMMEDIATE takes the write lock now. A transaction that starts with a read and then writes can fail without waiting
// for the lock.
Transaction::Transaction(Database& database) : mDatabase(database) {
    database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (mOpen) {
        sqlite3_exec(mDatabase.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    mDatabase.execute("COMMIT");
    mOpen = false;
}

}  // namespace sqlite
