// SPDX-License-Identifier: Apache-2.0
// Hub and local database.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace fake {

struct Family {
    std::string id;
    std::vector<std::pair<std::string, std::string>> users;  // id, name
    int result = 0;                                          // of the request for its users
};

void setFamilies(const std::vector<Family>& families);
// One record of a table: field, kind, value.
struct Field {
    std::string name;
    int kind;
    std::string value;
};
void setTable(const std::string& table, const std::vector<Field>& fields);
// Records of the last private update, "userId=.. userName=..".
std::vector<std::string> storedRecords();
int openRecords();

}  // namespace fake
