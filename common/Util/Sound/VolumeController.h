// SPDX-License-Identifier: Apache-2.0
// The volume of one sound type: get, set, step, mute, and a fade down while the assistant listens or speaks with a fade
// back afterwards. While ducked, the user's own changes are remembered and applied by the restore.
// Public operations: any thread. The platform reports changes on its own thread; each fade runs on a fader thread.
#pragma once

#include <sound_manager.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Util {

enum class MediaType : int {
    SYSTEM = 0,
    NOTIFICATION = 1,
    ALARM = 2,
    MEDIA_UNNAMED = 3,  // the media type too, but without a name in the log
    MEDIA = 4,
};

class VolumeController {
public:
    explicit VolumeController(MediaType mediaType);
    // Waits for a running fade to end.
    virtual ~VolumeController();
    VolumeController(const VolumeController&) = delete;
    VolumeController& operator=(const VolumeController&) = delete;

    int getRealVolume();       // the device's level, -1 on failure
    int setRealVolume(int v);  // the platform's result
    int getVolume();           // the user's level, also while ducked
    int setVolume(int v);
    int VolumeUp();
    int VolumeDown();
    int mute();
    int unmute();
    // `other` follows this controller's changes from now on and must outlive it.
    int addSync(VolumeController* other);
    // Called on the fader thread when a decrease ends; must not call this controller's own operations back.
    void setDecreaseCallback(const std::function<void(void*)>& callback, void* userData);
    int decreaseVolume(double seconds);  // 1 when a fade was started, else 0
    int restoreVolume(double seconds);   // 1

private:
    struct DecreaseCallback {
        std::function<void(void*)> callback;
        void* userData;
    };

    void implFaderThread(double seconds, int target, bool restore);
    void stopFader();
    void fade(double seconds, int target, bool restore);
    void endDecrease();
    static void _volume_changed_cb(sound_type_e type, unsigned int level, void* controller) noexcept;

    std::atomic<int> mVolume{-1};      // the user's; while ducked, the level to restore
    std::atomic<int> mLastVolume{-1};  // last that was not 0
    std::mutex mMutex;                 // makes the public operations exclude each other
    std::unique_ptr<std::thread> mFaderThread;
    std::atomic<bool> mFaderSet{false};  // cleared to stop the running fade
    std::mutex mSyncMutex;               // guards the two below, which other threads read
    std::vector<VolumeController*> mSyncList;
    std::unique_ptr<DecreaseCallback> mDecreaseCallback;
    std::atomic<bool> mFading{false};  // from the start of any fade until a restore ends
    MediaType mMediaType;
};

}  // namespace Util
