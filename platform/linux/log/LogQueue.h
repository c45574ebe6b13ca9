// SPDX-License-Identifier: Apache-2.0
// Lines on their way to one destination. A line is written at once if its reader keeps up. Otherwise it waits here, and
// a thread writes it later; if too much waits, new lines are dropped and counted. Any thread; never blocks, except in
// flush().
#pragma once

#include <atomic>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>

#include "Destination.h"

namespace logging {

class LogQueue {
public:
    // Makes the line that reports lost lines.
    using Report = std::string (*)(unsigned long dropped);

    LogQueue(Destination destination, Report report) : mDestination(destination), mReport(report) {}
    LogQueue(const LogQueue&) = delete;
    LogQueue& operator=(const LogQueue&) = delete;

    void write(std::string_view line) noexcept;
    // Waits for the reader, for at most a second. May be called in a signal handler.
    void flush() const noexcept;

private:
    bool drain();
    void append(std::string_view line);
    void startThread();
    void run() noexcept;

    static constexpr std::size_t kMostBytes = 256 * 1024;

    const Destination mDestination;
    const Report mReport;
    std::mutex mMutex;  // guards the fields below
    std::deque<std::string> mLines;
    std::size_t mBytes = 0;      // in mLines
    unsigned long mDropped = 0;  // since the last report
    bool mThreadRuns = false;
    std::atomic<bool> mWaiting{false};  // whether mLines has lines
};

}  // namespace logging
