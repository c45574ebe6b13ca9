// Keeps the local list of the household's users current: asks the account service for credentials, fetches families and
// users from the hub server and stores them for other applications.
//
// Threads: the main loop constructs, destroys, takes the account service's event and its reply; each refresh runs on a
// detached worker of its own, and workers exclude each other. What a worker uses lives in a shared session, which the
// last worker closes when the refresher has gone before it.
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
    // Does nothing without a network.
    void updateProfileInfo();
    // Frees the records of the last refresh, not the stored users; waits for a refresh that is under way.
    void resetBundle();

    static void appControlReplyCB(app_control_h request, app_control_h reply, app_control_result_e result,
                                  void* user_data) noexcept;

private:
    static void _profile_pushed_cb(const char* eventName, bundle* eventData, void* refresher) noexcept;

    event_handler_h mEventHandler = nullptr;
    std::shared_ptr<ProfileSession> mSession;
};

}  // namespace OrvaneDA
