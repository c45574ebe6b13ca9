// SPDX-License-Identifier: Apache-2.0
// A wake engine with a feed that the test fills and a listener that records its calls.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Speech.h"
#include "wakeup_engine.h"

constexpr std::chrono::seconds kWatchdog{60};

// Gives 16 ms blocks as fast as they are fetched, and null when it is empty.
class Feed : public nuance::IWakeupAudioIn {
public:
    void add(const speech::Samples& samples) {
        std::lock_guard lock(mMutex);
        for (std::size_t i = 0; i + 256 <= samples.size(); i += 256) {
            mBlocks.emplace_back(samples.begin() + static_cast<long>(i), samples.begin() + static_cast<long>(i + 256));
        }
    }
    // False if the engine takes no block for as long as the watchdog allows.
    bool waitUntilEmpty() {
        std::unique_lock lock(mMutex);
        const auto isEmpty = [this] { return mBlocks.empty() && mBorrowed == 0; };
        for (std::size_t last = mBlocks.size() + 1; !isEmpty() && mBlocks.size() < last;) {
            last = mBlocks.size();
            mChanged.wait_for(lock, kWatchdog, isEmpty);
        }
        return isEmpty();
    }
    bool waitUntilRead() {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, kWatchdog, [this] { return fetches > 0; });
    }
    bool waitForPolls(int count) {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, kWatchdog, [&] { return polls >= count; });
    }
    std::size_t queued() {
        std::lock_guard lock(mMutex);
        return mBlocks.size();
    }

    int Start() override {
        std::lock_guard lock(mMutex);
        ++starts;
        return startResult;
    }
    int Stop() override {
        std::lock_guard lock(mMutex);
        ++stops;
        return 0;
    }
    int HasData(bool& available) override {
        std::lock_guard lock(mMutex);
        ++polls;
        mChanged.notify_all();
        available = !mBlocks.empty();
        return 0;
    }
    int FetchData(void*& data, unsigned int& size) override {
        std::lock_guard lock(mMutex);
        ++fetches;
        data = nullptr;
        size = 0;
        if (!mBlocks.empty()) {
            mCurrent = std::move(mBlocks.front());
            mBlocks.pop_front();
            ++mBorrowed;
            data = mCurrent.data();
            size = static_cast<unsigned int>(mCurrent.size() * sizeof(int16_t));
        }
        return 0;
    }
    int ReturnData(void* data) override {
        std::lock_guard lock(mMutex);
        foreignBlocks += data != mCurrent.data();
        --mBorrowed;
        mChanged.notify_all();
        return 0;
    }

    std::atomic<int> starts{0};
    std::atomic<int> stops{0};
    std::atomic<int> polls{0};
    std::atomic<int> fetches{0};
    std::atomic<int> foreignBlocks{0};  // returned, but never fetched
    int startResult = 0;
    int borrowed() const { return mBorrowed; }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<speech::Samples> mBlocks;
    speech::Samples mCurrent;
    std::atomic<int> mBorrowed{0};
};

class TestListener : public nuance::IWakeupListener {
public:
    struct Wakeup {
        std::string word;
        int level;
        std::thread::id thread;
    };

    void OnWakeup(const std::string& word, int level) override {
        std::unique_lock lock(mMutex);
        wakeups.push_back({word, level, std::this_thread::get_id()});
        mChanged.notify_all();
        if (onWakeup) {
            const auto act = onWakeup;
            lock.unlock();
            act();
        }
    }
    void OnCanceled() override {
        note([this] { ++cancels; });
    }
    void OnError(Error code, const std::string& detail) override {
        note([&] {
            errors.push_back(code);
            details.push_back(detail);
        });
    }
    void OnWarning(Warning code, const std::string& detail) override {
        note([&] {
            warnings.push_back(code);
            details.push_back(detail);
        });
    }

    bool waitFor(const std::function<bool()>& condition) {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, kWatchdog, condition);
    }
    bool waitForWakeups(std::size_t count) {
        return waitFor([&] { return wakeups.size() >= count; });
    }

    std::vector<Wakeup> wakeups;
    std::vector<Error> errors;
    std::vector<Warning> warnings;
    std::vector<std::string> details;
    int cancels = 0;
    std::function<void()> onWakeup;

private:
    void note(const std::function<void()>& record) {
        std::lock_guard lock(mMutex);
        record();
        mChanged.notify_all();
    }

    std::mutex mMutex;
    std::condition_variable mChanged;
};

struct DestroyCtx {
    void operator()(nuance::IWakeupCtx* ctx) const noexcept { nuance::IWakeupCtx::Destroy(ctx); }
};

struct EngineHarness {
    EngineHarness() : EngineHarness(nuance::IWakeupCtx::Create()) {}
    explicit EngineHarness(nuance::IWakeupCtx* engine) : ctx(engine) { ctx->AttachListener(&listener); }

    bool load(const std::string& language, const std::string& word) {
        return ctx->Initialize(ORVANE_DATA "/voice/data/" + language + "/wakeup_" + word + "/", "vocon_config.json");
    }
    void listen() {
        ctx->AttachAudioIn(&feed);
        ctx->StartListening();
    }

    Feed feed;
    TestListener listener;
    std::unique_ptr<nuance::IWakeupCtx, DestroyCtx> ctx;  // destroyed first, because it calls the others
};

// A directory with this configuration.
class ConfigFolder {
public:
    explicit ConfigFolder(const std::string& text) {
        std::string name = (std::filesystem::temp_directory_path() / "wakeup-XXXXXX").string();
        mPath = mkdtemp(name.data());
        std::ofstream(mPath + "/vocon_config.json") << text;
    }
    ~ConfigFolder() { std::filesystem::remove_all(mPath); }
    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};
