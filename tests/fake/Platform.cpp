// SPDX-License-Identifier: Apache-2.0
#include "fake/Platform.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>

namespace fake {

std::string str(const char* text) {
    return text ? text : "(null)";
}

std::string Call::text() const {
    std::string result = name + "(";
    for (size_t i = 0; i < args.size(); ++i) {
        result += (i ? ", " : "") + args[i];
    }
    return result + ")";
}

Platform& Platform::get() {
    // Never destroyed: the product's static objects call the platform until the process ends.
    static Platform* instance = new Platform;
    return *instance;
}

void Platform::reset() {
    std::vector<std::function<void()>> resets;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mCalls.clear();
        mLogs.clear();
        mStory.clear();
        mAnswers.clear();
        mNextAnswers.clear();
        mHooks.clear();
        mLogHook = nullptr;
        resets = mResets;
    }
    for (auto& reset : resets) {
        reset();
    }
}

bool Platform::addReset(std::function<void()> reset) {
    std::lock_guard<std::mutex> lock(mMutex);
    mResets.push_back(std::move(reset));
    return true;
}

int Platform::call(const std::string& name, std::vector<std::string> args, int otherwise) {
    Call call{name, std::move(args), static_cast<pid_t>(syscall(SYS_gettid))};
    std::function<void(const Call&)> hook;
    int code = otherwise;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mCalls.push_back(call);
        mStory.push_back(call.text());
        auto next = mNextAnswers.find(name);
        if (next != mNextAnswers.end() && !next->second.empty()) {
            code = next->second.front();
            next->second.pop_front();
        } else if (auto standing = mAnswers.find(name); standing != mAnswers.end()) {
            code = standing->second;
        }
        if (auto found = mHooks.find(name); found != mHooks.end()) {
            hook = found->second;
        }
        mChanged.notify_all();
    }
    if (hook) {
        hook(call);
    }
    return code;
}

void Platform::log(const LogLine& line) {
    std::function<void(const LogLine&)> hook;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mLogs.push_back(line);
        mStory.push_back("log: " + line.message);
        hook = mLogHook;
        mChanged.notify_all();
    }
    if (hook) {
        hook(line);
    }
}

void Platform::answer(const std::string& name, int code) {
    std::lock_guard<std::mutex> lock(mMutex);
    mAnswers[name] = code;
}

void Platform::answerNext(const std::string& name, int code, int times) {
    std::lock_guard<std::mutex> lock(mMutex);
    mNextAnswers[name].insert(mNextAnswers[name].end(), times, code);
}

void Platform::onCall(const std::string& name, std::function<void(const Call&)> hook) {
    std::lock_guard<std::mutex> lock(mMutex);
    mHooks[name] = std::move(hook);
}

void Platform::onLog(std::function<void(const LogLine&)> hook) {
    std::lock_guard<std::mutex> lock(mMutex);
    mLogHook = std::move(hook);
}

std::vector<Call> Platform::calls() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mCalls;
}

std::vector<Call> Platform::calls(const std::string& name) const {
    std::vector<Call> result;
    for (auto& call : calls()) {
        if (call.name == name) {
            result.push_back(call);
        }
    }
    return result;
}

std::vector<std::string> Platform::names() const {
    std::vector<std::string> result;
    for (auto& call : calls()) {
        result.push_back(call.name);
    }
    return result;
}

std::vector<std::string> Platform::texts() const {
    return textsOf({""});
}

std::vector<std::string> Platform::textsOf(const std::vector<std::string>& prefixes) const {
    std::vector<std::string> result;
    for (auto& call : calls()) {
        if (std::any_of(prefixes.begin(), prefixes.end(),
                        [&](const std::string& prefix) { return call.name.compare(0, prefix.size(), prefix) == 0; })) {
            result.push_back(call.text());
        }
    }
    return result;
}

size_t Platform::count(const std::string& name) const {
    return calls(name).size();
}

std::vector<std::string> Platform::story() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mStory;
}

void Platform::forgetCalls() {
    std::lock_guard<std::mutex> lock(mMutex);
    mCalls.clear();
    mLogs.clear();
    mStory.clear();
}

std::vector<LogLine> Platform::logs() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mLogs;
}

bool Platform::logged(int priority, const std::string& message) const {
    auto lines = logs();
    return std::any_of(lines.begin(), lines.end(),
                       [&](const LogLine& line) { return line.priority == priority && line.message == message; });
}

size_t Platform::countLogged(const std::string& message) const {
    auto lines = logs();
    return std::count_if(lines.begin(), lines.end(), [&](const LogLine& line) { return line.message == message; });
}

bool Platform::waitFor(const std::string& name, size_t times, std::chrono::milliseconds watchdog) const {
    return waitUntil([&] { return count(name) >= times; }, watchdog);
}

bool Platform::waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds watchdog) const {
    const auto end = std::chrono::steady_clock::now() + watchdog;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        // A condition may depend on more than calls, so check it again soon even without a call.
        std::unique_lock<std::mutex> lock(mMutex);
        mChanged.wait_for(lock, std::chrono::milliseconds(2));
    }
    return true;
}

}  // namespace fake
