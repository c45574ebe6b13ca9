// SPDX-License-Identifier: Apache-2.0
#include "status/Problems.h"

#include "status/Notify.h"

namespace status {

void Problems::set(Part part, const std::string& problem) {
    const std::lock_guard lock(mMutex);
    std::string& known = mProblems[part];
    if (known == problem) {
        return;
    }
    known = problem;
    // Under the lock, so that the texts are sent in the order of the changes.
    notifyManager("STATUS=" + allInOneLine());
}

std::string Problems::text() const {
    const std::lock_guard lock(mMutex);
    return allInOneLine();
}

std::string Problems::allInOneLine() const {
    std::string all;
    for (const auto& [part, problem] : mProblems) {
        all += (all.empty() || problem.empty() ? "" : "; ") + problem;
    }
    return all.empty() ? "Ready" : all;
}

}  // namespace status
