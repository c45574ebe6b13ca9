// SPDX-License-Identifier: Apache-2.0
#include "LogQueue.h"

#include <signal.h>
#include <time.h>

#include <exception>
#include <system_error>
#include <thread>

namespace logging {

namespace {

constexpr long kPauseMs = 10;
constexpr int kFlushPauses = 100;

void pauseBriefly() noexcept {
    const timespec time{0, kPauseMs * 1'000'000};
    nanosleep(&time, nullptr);
}

}  // namespace

void LogQueue::write(std::string_view line) noexcept {
    const std::lock_guard lock(mMutex);
    try {
        if (drain()) {
            line.remove_prefix(writeNow(mDestination, line));
        }
        if (!line.empty()) {
            append(line);
            startThread();
        }
    } catch (const std::exception&) {
        ++mDropped;
    }
    mWaiting = !mLines.empty();
}

// Returns whether the queue is empty.
bool LogQueue::drain() {
    while (true) {
        if (mLines.empty() && mDropped > 0) {
            append({});
        }
        if (mLines.empty()) {
            return true;
        }
        std::string& first = mLines.front();
        const std::size_t size = writeNow(mDestination, first);
        mBytes -= size;
        if (size < first.size()) {
            first.erase(0, size);
            return false;
        }
        mLines.pop_front();
    }
}

// If lines were dropped, first adds the report of their number. An empty line adds only that report.
void LogQueue::append(std::string_view line) {
    if (mBytes + line.size() > kMostBytes) {
        ++mDropped;
        return;
    }
    if (mDropped > 0) {
        mLines.push_back(mReport(mDropped));
        mBytes += mLines.back().size();
        mDropped = 0;
    }
    if (!line.empty()) {
        mLines.emplace_back(line);
        mBytes += line.size();
    }
}

// Without a thread, the next line tries again.
void LogQueue::startThread() {
    if (mThreadRuns) {
        return;
    }
    try {
        std::thread([this] { run(); }).detach();
        mThreadRuns = true;
    } catch (const std::system_error&) {  // the line waits for the next one, which tries again
    }
}

// Blocks all signals, so that the other threads receive them.
void LogQueue::run() noexcept {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, nullptr);
    for (bool empty = false; !empty;) {
        pauseBriefly();
        const std::lock_guard lock(mMutex);
        try {
            empty = drain();
        } catch (const std::exception&) {  // no memory for the report, which follows later
            empty = mLines.empty();
        }
        mWaiting = !empty;
        mThreadRuns = !empty;
    }
}

void LogQueue::flush() const noexcept {
    for (int pause = 0; mWaiting && pause < kFlushPauses; ++pause) {
        pauseBriefly();
    }
}

}  // namespace logging
