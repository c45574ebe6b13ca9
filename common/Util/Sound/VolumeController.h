// SPDX-License-Identifier: Apache-2.0
// The volume of one sound type: get, set, step, mute, and fades. A decrease fades the volume down while the assistant
// listens or speaks; a restore fades it back. In between, setVolume only remembers the level for the restore.
// Any thread may call the public operations. The platform reports changes on its own thread; each fade runs on a fader
// thread.
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
    MEDIA_UNNAMED = 3,  // the media type, named UNKNOWN in the log
    MEDIA = 4,
};

class VolumeController {
public:
    explicit VolumeController(MediaType mediaType);
    // Waits for a running fade.
    virtual ~VolumeController();
    VolumeController(const VolumeController&) = delete;
    VolumeController& operator=(const VolumeController&) = delete;

    int getRealVolume();       // the device's level; -1 on failure
    int setRealVolume(int v);  // returns the platform's result
    int getVolume();           // the user's level; after a decrease, the level to restore
    int setVolume(int v);
    int VolumeUp();
    int VolumeDown();
    int mute();
    int unmute();
    // From now on, `other` receives each level that the platform reports for this controller. It must outlive this
    // controller.
    int addSync(VolumeController* other);
    // Called when a decrease ends: on the fader thread, or by decreaseVolume if no thread can be created. Must not call
    // this controller.
    void setDecreaseCallback(const std::function<void(void*)>& callback, void* userData);
    int decreaseVolume(double seconds);  // returns 1 if it started a fade, else 0
    int restoreVolume(double seconds);   // returns 1

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

    // Lock order: mMutex, then mSyncMutex. The platform is called under mMutex, but never under mSyncMutex.
    std::atomic<int> mVolume{-1};      // the user's level; after a decrease, the level to restore
    std::atomic<int> mLastVolume{-1};  // the last level above 0
    std::mutex mMutex;                 // serializes the public operations; guards mFaderThread
    std::unique_ptr<std::thread> mFaderThread;
    std::atomic<bool> mFaderSet{false};  // false stops the running fade
    std::mutex mSyncMutex;               // guards the two fields below
    std::vector<VolumeController*> mSyncList;
    std::unique_ptr<DecreaseCallback> mDecreaseCallback;
    std::atomic<bool> mFading{false};  // from the start of a fade until the end of a restore
    MediaType mMediaType;
};

}  // namespace Util
