// SPDX-License-Identifier: Apache-2.0
// An engine with a feed that a test fills and a listener that remembers; conditions instead of sleeps.
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

constexpr std::chrono::seconds kWatchdog{20};

// Hands out 16 ms blocks as fast as they are fetched. Closed, or without a block, it answers with nothing.
class Feed : public nuance::IWakeupAudioIn {
public:
    void add(const speech::Samples& samples) {
        std::lock_guard lock(mMutex);
        for (std::size_t i = 0; i + 256 <= samples.size(); i += 256) {
            mBlocks.emplace_back(samples.begin() + static_cast<long>(i), samples.begin() + static_cast<long>(i + 256));
        }
    }
    bool waitUntilEmpty() {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, kWatchdog, [this] { return mBlocks.empty() && mLoaned == 0; });
    }
    bool waitUntilRead() {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, kWatchdog, [this] { return fetches > 0; });
    }
    std::size_t left() {
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
            ++mLoaned;
            data = mCurrent.data();
            size = static_cast<unsigned int>(mCurrent.size() * sizeof(int16_t));
        }
        return 0;
    }
    int ReturnData(void* data) override {
        std::lock_guard lock(mMutex);
        strangers += data != mCurrent.data();
        --mLoaned;
        mChanged.notify_all();
        return 0;
    }

    std::atomic<int> starts{0};
    std::atomic<int> stops{0};
    std::atomic<int> fetches{0};
    std::atomic<int> strangers{0};  // blocks given back that were never handed out
    int startResult = 0;
    int loaned() const { return mLoaned; }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<speech::Samples> mBlocks;
    speech::Samples mCurrent;
    std::atomic<int> mLoaned{0};
};

class Witness : public nuance::IWakeupListener {
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
        if (inWakeup) {
            const auto act = inWakeup;
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
    std::function<void()> inWakeup;

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

// The context goes first: nothing is called after it.
struct EngineRoom {
    EngineRoom() { ctx->AttachListener(&witness); }

    bool load(const std::string& language, const std::string& word) {
        return ctx->Initialize(ORVANE_DATA "/voice/data/" + language + "/wakeup_" + word + "/", "vocon_config.json");
    }
    void listen() {
        ctx->AttachAudioIn(&feed);
        ctx->StartListening();
    }

    Feed feed;
    Witness witness;
    std::unique_ptr<nuance::IWakeupCtx, DestroyCtx> ctx{nuance::IWakeupCtx::Create()};
};

// A configuration of the test's own in a folder of its own.
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
