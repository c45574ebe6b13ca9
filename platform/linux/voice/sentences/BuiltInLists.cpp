// SPDX-License-Identifier: Apache-2.0
#include "BuiltInLists.h"

#include <map>

namespace voice {

namespace {

const std::map<std::string, std::vector<Named> (*)()>& makers() {
    static const std::map<std::string, std::vector<Named> (*)()> kMakers{
        {"number", numberNames}, {"time", timeNames}, {"duration", durationNames}};
    return kMakers;
}

}  // namespace

bool isBuiltInList(const std::string& list) {
    return makers().count(list) > 0;
}

std::vector<Named> builtInNames(const std::string& list) {
    return makers().at(list)();
}

}  // namespace voice
