// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

#include "audio/SoundServer.h"
#include "audio/SoundThread.h"
#include "gio/IoThread.h"

namespace audio {

// Watches the sound server for changes by any program and runs checks of the new state on the sound thread. Changes in
// quick succession share one check. Shared by the process.
class SoundEvents final : private SoundServer::Client {
public:
    // Runs shortly after each change, and after the server connects or disconnects. If it returns false because the
    // server was too slow, it runs again later.
    using Check = std::function<bool()>;

    SoundEvents();
    ~SoundEvents();
    SoundEvents(const SoundEvents&) = delete;
    SoundEvents& operator=(const SoundEvents&) = delete;

    // Call each at most once.
    void onVolume(Check check) { mVolume.set(std::move(check)); }
    void onPlayback(Check check) { mPlayback.set(std::move(check)); }

private:
    class Watch {
    public:
        Watch(SoundThread& thread, gio::IoThread& ioThread) : mThread(thread), mIoThread(ioThread) {}
        ~Watch();
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        void set(Check check);
        void soon();

    private:
        void run();

        SoundThread& mThread;
        gio::IoThread& mIoThread;
        std::mutex mMutex;
        Check mCheck;
        std::atomic<bool> mPending{false};
        std::shared_ptr<bool> mAlive = std::make_shared<bool>(true);  // IO thread only; false: late retries do nothing
    };

    void connected(pulse::Context& context) noexcept override;
    void lost() noexcept override;

    SoundServer& mServer;
    Watch mVolume;
    Watch mPlayback;
};

}  // namespace audio
