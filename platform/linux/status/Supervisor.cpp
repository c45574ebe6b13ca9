// SPDX-License-Identifier: Apache-2.0
#include "status/Supervisor.h"

namespace status {

std::string Supervisor::hanging(Clock::time_point now) const {
    const std::lock_guard lock(mMutex);
    const auto oldest = mRunning.begin();
    return oldest != mRunning.end() && now > oldest->first ? oldest->second : "";
}

Work::Work(Supervisor& supervisor, const char* name, std::chrono::seconds limit) : mSupervisor(supervisor) {
    const std::lock_guard lock(mSupervisor.mMutex);
    mEntry = mSupervisor.mRunning.emplace(Supervisor::Clock::now() + limit, name);
}

Work::~Work() {
    const std::lock_guard lock(mSupervisor.mMutex);
    mSupervisor.mRunning.erase(mEntry);
}

}  // namespace status
