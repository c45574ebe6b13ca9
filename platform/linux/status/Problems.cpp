// SPDX-License-Identifier: Apache-2.0
#include "status/Problems.h"

namespace status {

void Problems::set(Part part, const std::string& problem) {
    const std::lock_guard lock(mMutex);
    if (problem.empty()) {
        mProblems.erase(part);
    } else {
        mProblems[part] = problem;
    }
}

std::string Problems::text() const {
    const std::lock_guard lock(mMutex);
    std::string all;
    for (const auto& [part, problem] : mProblems) {
        all += (all.empty() ? "" : "; ") + problem;
    }
    return all;
}

}  // namespace status
