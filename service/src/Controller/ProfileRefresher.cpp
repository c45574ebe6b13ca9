// SPDX-License-Identifier: Apache-2.0
#include "Controller/ProfileRefresher.h"

#include <exception>
#include <map>
#include <mutex>
#include <thread>

#include "Controller/ProfileSession.h"
#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

namespace {

// A reply carries a raw pointer to its refresher and may arrive after the refresher is destroyed.
std::mutex liveMutex;  // guards liveSessions
std::map<void*, std::weak_ptr<ProfileSession>> liveSessions;

std::shared_ptr<ProfileSession> liveSession(void* refresher) {
    std::lock_guard<std::mutex> lock(liveMutex);
    auto found = liveSessions.find(refresher);
    return found == liveSessions.end() ? nullptr : found->second.lock();
}

// Worker only. The refresher may be destroyed at any time, so this code never dereferences the pointer. It only passes
// it on, for the reply.
void refresh(const std::shared_ptr<ProfileSession>& session, ProfileRefresher* refresher) {
    Util::AppControlData request;
    session->refresh([&] {
        request.setPackageName(Constants::App::ACCOUNT_SERVICE).setOperation(Constants::Operation::GET_SERVICE_STATUS);
        request.setReplyCallback(ProfileRefresher::appControlReplyCB, refresher);
        Util::AppControl::performAppControl(request);
    });
}

}  // namespace

ProfileRefresher::ProfileRefresher() {
    LOGD("");
    mSession = std::make_shared<ProfileSession>();
    {
        std::lock_guard<std::mutex> lock(liveMutex);
        liveSessions[this] = mSession;
    }
    initPushProfile();
    updateProfileInfo();
}

ProfileRefresher::~ProfileRefresher() {
    LOGD("~ProfileRefresher");
    {
        std::lock_guard<std::mutex> lock(liveMutex);
        liveSessions.erase(this);
    }
    if (mEventHandler != nullptr) {
        event_remove_event_handler(mEventHandler);
    }
    mSession->close();
}

void ProfileRefresher::initPushProfile() {
    const std::string eventName = std::string("event.") + Constants::App::ACCOUNT_SERVICE + ".notification";
    if (event_add_event_handler(eventName.c_str(), _profile_pushed_cb, this, &mEventHandler) != EVENT_ERROR_NONE) {
        LOGE("Failed to init push profile");
    } else {
        LOGD("Success to init push profile");
    }
}

void ProfileRefresher::_profile_pushed_cb(const char*, bundle*, void* refresher) noexcept {
    LOGD("received push message of profile update");
    static_cast<ProfileRefresher*>(refresher)->updateProfileInfo();
}

void ProfileRefresher::updateProfileInfo() {
    LOGD("");
    if (Util::systemConfig().getConnectionState() == CONNECTION_TYPE_DISCONNECTED) {
        LOGD("No network connection.");
        return;
    }
    try {
        std::thread(refresh, mSession, this).detach();
    } catch (const std::exception&) {
        LOGE("Failed to start a refresh");
    }
}

void ProfileRefresher::resetBundle() {
    mSession->resetBundle();
}

void ProfileRefresher::appControlReplyCB(app_control_h, app_control_h reply, app_control_result_e result,
                                         void* user_data) noexcept {
    LOGD("");
    Util::AppControlData data(reply);
    LOGD("result_e:[%d]", result);
    if (result == APP_CONTROL_RESULT_FAILED) {
        LOGE("errorMessage:[%s]", data.getExtraData("errorMessage").c_str());
    }
    const std::shared_ptr<ProfileSession> session = liveSession(user_data);
    if (session == nullptr) {
        return;
    }
    if (result == APP_CONTROL_RESULT_SUCCEEDED && data.getExtraData("quorbit_account_status") == "true") {
        const Account account{
            data.getExtraData("quorbit_account_guid"), data.getExtraData("quorbit_account_access_token"),
            data.getExtraData("quorbit_account_client_id"), data.getExtraData("quorbit_account_server_uri")};
        session->answer(&account);
    } else {
        session->answer(nullptr);
    }
}

}  // namespace OrvaneDA
