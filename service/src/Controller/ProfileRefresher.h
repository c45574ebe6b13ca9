// SPDX-License-Identifier: Apache-2.0
// Keeps the local list of the household's users up to date. Requests credentials from the account service, fetches
// families and users from the hub, and stores the users for other applications.
//
// Threads: the main loop constructs and destroys the refresher, and receives the event and the reply of the account
// service. Each refresh runs on its own detached worker, which may outlive the refresher (see ProfileSession).
#pragma once

#include <app_control.h>
#include <app_event.h>

#include <memory>

namespace OrvaneDA {

class ProfileSession;

class ProfileRefresher {
public:
    // Starts the first refresh.
    ProfileRefresher();
    virtual ~ProfileRefresher();
    ProfileRefresher(const ProfileRefresher&) = delete;
    ProfileRefresher& operator=(const ProfileRefresher&) = delete;

    void initPushProfile();
    // Does nothing without a network connection.
    void updateProfileInfo();
    // Frees the records of the last refresh but not the stored users. Waits for a refresh in progress.
    void resetBundle();

    static void appControlReplyCB(app_control_h request, app_control_h reply, app_control_result_e result,
                                  void* user_data) noexcept;

private:
    static void _profile_pushed_cb(const char* eventName, bundle* eventData, void* refresher) noexcept;

    event_handler_h mEventHandler = nullptr;
    std::shared_ptr<ProfileSession> mSession;
};

}  // namespace OrvaneDA
