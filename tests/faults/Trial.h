// SPDX-License-Identifier: Apache-2.0
// One fault against the running service. The functions that wait throw std::runtime_error with a text that names what
// did not happen.
#pragma once

#include <signal.h>

#include <memory>
#include <string>
#include <vector>

#include "Resources.h"
#include "appliance/Appliance.h"

namespace faults {

// The service's exit code when it cannot start.
inline constexpr int kCannotStart = 1;

// The machine lacks what the fault needs, such as a second user.
struct CannotRun {
    std::string reason;
};

class Trial {
public:
    explicit Trial(sim::Appliance& appliance);

    sim::Appliance& appliance() { return mAppliance; }
    sim::Service& service() { return mAppliance.service(); }

    // What the service showed while the fault lasted, for the table.
    void report(const std::string& text);
    // Waits until the UI receives the state, and reports it.
    void awaitState(const std::string& state, const std::string& error = "None", double seconds = 20);
    // Waits until the UI receives any error, and reports it.
    void awaitError(double seconds = 20);
    // Waits until the service logs a line that contains the text, and reports it.
    void awaitLog(const std::string& text, double seconds = 10);
    // Waits until the service ends with this code after a line that contains the text, and reports both.
    void awaitEnd(int code, const std::string& text, double seconds = 20);
    // Starts the service in a shell after these commands, such as "ulimit -n 36". Use it only in a fault that ends with
    // awaitEnd() or restart().
    void startUnder(const std::string& commands);
    // Sends SIGTERM to that service, which must end with code 0.
    void endStarted();
    void restart();

    // Starts a recognition session from the UI, again while the service reports that it is not ready, and returns when
    // it records.
    void startRecording(const std::string& mode = "Default");
    // Asks for a recognition session as the UI does, and returns true if the service records.
    bool records();
    // Runs a program and returns its exit code.
    int run(const std::vector<std::string>& words);
    // Like run(), as the user nobody. Throws CannotRun if this user may not run programs as another user.
    int runAsAnotherUser(const std::vector<std::string>& words);

    const std::string& reported() const { return mReported; }
    bool serviceEnded() const { return mEnded; }
    // Whether the service runs in a different process than before the fault.
    bool restarted() const { return mRestarted; }

private:
    std::string newLog() const;
    // Returns false if the service does not record.
    bool tryStart(const std::string& mode);

    sim::Appliance& mAppliance;
    std::size_t mLogBefore;
    std::unique_ptr<sim::Process> mStarted;
    std::string mReported;
    bool mEnded = false;
    bool mRestarted = false;
};

// Starts the service, makes a search, and refreshes the profile, so that the service has loaded and opened everything
// that it loads or opens only once.
void startWarm(sim::Appliance& appliance);

// Stops a process for as long as this object exists.
class Frozen {
public:
    explicit Frozen(pid_t process) : mProcess(process) { ::kill(mProcess, SIGSTOP); }
    ~Frozen() { ::kill(mProcess, SIGCONT); }
    Frozen(const Frozen&) = delete;
    Frozen& operator=(const Frozen&) = delete;

private:
    pid_t mProcess;
};

}  // namespace faults
