// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "sqlite/Database.h"

namespace sqlite {

// A write transaction. The destructor rolls it back unless it is committed. Must be destroyed before its database.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& mDatabase;
    bool mOpen = true;
};

}  // namespace sqlite
