// SPDX-License-Identifier: Apache-2.0
// The scripted platform: records every call of the product to the seam with its arguments and thread, in order, and
// returns what the test scripted. One per process; reset() between tests. Any thread.
#pragma once

#include <dlog.h>
#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace fake {

struct Call {
    std::string name;
    std::vector<std::string> args;
    pid_t thread;  // kernel thread id

    std::string text() const;  // name(arg, arg)
};

struct LogLine {
    int priority;
    std::string tag;
    std::string text;     // as formatted for the system log, with color and prefix
    std::string message;  // between the prefix and the color reset
    pid_t thread;
};

class Platform {
public:
    static Platform& get();

    // Clears calls, log lines, results, and hooks, and runs the resets of all fakes.
    void reset();
    // A fake registers how to reset its own state. Returns true, for use in a static initializer.
    bool addReset(std::function<void()> reset);

    // For the fakes: records a call, runs its hook, and returns the scripted result or `otherwise`.
    int call(const std::string& name, std::vector<std::string> args = {}, int otherwise = 0);
    void log(const LogLine& line);

    // For the tests.
    void answer(const std::string& name, int code);                     // from now on
    void answerNext(const std::string& name, int code, int times = 1);  // before the result of answer()
    void onCall(const std::string& name,
                std::function<void(const Call&)> hook);    // runs on the caller's thread, without a lock
    void onLog(std::function<void(const LogLine&)> hook);  // same

    std::vector<Call> calls() const;
    std::vector<Call> calls(const std::string& name) const;
    std::vector<std::string> names() const;  // in order
    std::vector<std::string> texts() const;  // in order, with arguments
    // In order, only the calls whose names start with one of the prefixes.
    std::vector<std::string> textsOf(const std::vector<std::string>& prefixes) const;
    size_t count(const std::string& name) const;
    // Calls with arguments, and log messages ("log: ..."), in order.
    std::vector<std::string> story() const;
    void forgetCalls();  // and log lines
    std::vector<LogLine> logs() const;
    bool logged(int priority, const std::string& message) const;
    size_t countLogged(const std::string& message) const;
    // Waits until a call was made `times` times. False if the watchdog ends first.
    bool waitFor(const std::string& name, size_t times = 1,
                 std::chrono::milliseconds watchdog = std::chrono::seconds(20)) const;
    bool waitUntil(const std::function<bool()>& condition,
                   std::chrono::milliseconds watchdog = std::chrono::seconds(20)) const;

private:
    mutable std::mutex mMutex;
    mutable std::condition_variable mChanged;
    std::vector<Call> mCalls;
    std::vector<LogLine> mLogs;
    std::vector<std::string> mStory;
    std::map<std::string, int> mAnswers;
    std::map<std::string, std::deque<int>> mNextAnswers;
    std::map<std::string, std::function<void(const Call&)>> mHooks;
    std::function<void(const LogLine&)> mLogHook;
    std::vector<std::function<void()>> mResets;
};

inline Platform& platform() {
    return Platform::get();
}

std::string str(const char* text);  // "(null)" for null
template <typename T>
std::string str(T value) {
    return std::to_string(value);
}

}  // namespace fake
