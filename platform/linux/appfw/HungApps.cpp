// SPDX-License-Identifier: Apache-2.0
#include "HungApps.h"

#include "Ports.h"
#include "bus/SessionBus.h"
#include "process/FaultLog.h"
#include "process/Guard.h"

namespace appfw {

namespace {

constexpr int kNoTimeLimit = G_MAXINT;  // as GDBus defines it

constexpr char kTag[] = "orvane-appfw";
// An application that hangs again within this time has not recovered.
constexpr std::chrono::minutes kProof{1};

}  // namespace

bool HungApps::contains(const std::string& app) {
    const std::lock_guard lock(mMutex);
    return mApps.count(app) != 0;
}

// Asks the application for a reply, without a time limit. The bus replies in its place if it ends.
void HungApps::add(const std::string& app) {
    {
        const std::lock_guard lock(mMutex);
        if (!mApps.insert(app).second) {
            return;
        }
    }
    process::logFault(DLOG_WARN, kTag, app, app + " does not reply; it receives no messages until it does");
    bus::session().callAsync({app, Ports::kPath, Ports::kInterface}, "HasPort", gio::Variant::tuple(""),
                             {kNoTimeLimit, false}, [this, app](const gio::Variant&, const gio::CallError*) {
                                 process::contained("reply from a hung application", [&] { remove(app); });
                             });
}

// On the IO thread.
void HungApps::remove(const std::string& app) {
    {
        const std::lock_guard lock(mMutex);
        mApps.erase(app);
    }
    process::faultEnded(app, kProof);
    dlog_print(DLOG_INFO, kTag, "%s replied or ended; it receives messages again", app.c_str());
}

}  // namespace appfw
