// SPDX-License-Identifier: Apache-2.0
// orvane-volume-fade: fades the media volume and draws every change of its level. Lines of standard input:
//   decrease SECONDS    turns it down when something plays
//   restore SECONDS     returns to the user's level
//   volume LEVEL        sets the user's level, 0 to 15, to which a later restore returns
// At the end of the input the user's level returns, and also when this program is killed (Lease.h). The product's log
// is not shown, so that the drawing stays readable. The main thread reads, the sound manager's thread draws, and each
// fade runs on the controller's fader thread.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>

#include "Keeper.h"
#include "Lease.h"
#include "Util/Singleton.h"
#include "Util/Sound/SoundStreamWatcher.h"
#include "Util/Sound/VolumeController.h"

namespace {

using Clock = std::chrono::steady_clock;

// Discards standard output and standard error, and returns a handle to the original standard output.
int silenceLog() {
    const int shown = dup(STDOUT_FILENO);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    return shown;
}

class Screen {
public:
    Screen(int handle, Lease& lease) : mHandle(handle), mLease(lease) {
        sound_manager_set_volume_changed_cb(onChanged, this);
    }
    ~Screen() { sound_manager_unset_volume_changed_cb(onChanged, this); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void print(const std::string& words) const { dprintf(mHandle, "%s\n", words.c_str()); }
    void draw(unsigned level) const {
        const std::chrono::duration<double> time = Clock::now() - mStart;
        dprintf(mHandle, "%8.2f s  %2u %s\n", time.count(), level, std::string(level, '#').c_str());
    }

private:
    static void onChanged(sound_type_e type, unsigned level, void* self) noexcept {
        if (type == SOUND_TYPE_MEDIA) {
            static_cast<const Screen*>(self)->draw(level);
            static_cast<const Screen*>(self)->mLease.reached(static_cast<int>(level));
        }
    }

    int mHandle;
    Lease& mLease;
    Clock::time_point mStart = Clock::now();
};

class Fader {
public:
    Fader(const Screen& screen, Lease& lease) : mScreen(screen), mLease(lease) { mScreen.draw(mMedia.getVolume()); }
    // Also stops a running fade, which without a sound server would never end.
    ~Fader() {
        if (mFaded) {
            mMedia.restoreVolume(0);
        }
    }
    Fader(const Fader&) = delete;
    Fader& operator=(const Fader&) = delete;

    void execute(const std::string& line) {
        std::istringstream words(line);
        std::string command;
        double value = 0;
        words >> command >> value;
        if (words.fail() || value < 0) {
            mScreen.print("expected decrease SECONDS, restore SECONDS, or volume LEVEL, not: " + line);
        } else if (command == "decrease") {
            decrease(value);
        } else if (command == "restore") {
            restore(value);
        } else if (command == "volume") {
            setLevel(static_cast<int>(value));
        } else {
            mScreen.print("unknown command: " + line);
        }
    }

private:
    void decrease(double seconds) {
        mLease.hold(mMedia.getVolume());
        if (mMedia.decreaseVolume(seconds) == 1) {
            mDucked = mFaded = true;
        } else {
            mLease.release();
            mScreen.print("no fade: nothing plays, or the level is already low");
        }
    }
    void restore(double seconds) {
        if (mDucked) {
            mLease.releaseAt(mMedia.getVolume());
            mMedia.restoreVolume(seconds);
            mDucked = false;
        }
    }
    void setLevel(int level) {
        if (mDucked) {
            mLease.hold(level);
        }
        mMedia.setVolume(level);
    }

    const Screen& mScreen;
    Lease& mLease;
    Util::VolumeController mMedia{Util::MediaType::MEDIA};
    bool mDucked = false;
    bool mFaded = false;  // at least once
};

}  // namespace

int main() {
    Lease lease(startKeeper());
    const Screen screen(silenceLog(), lease);
    {
        Fader fader(screen, lease);
        for (std::string line; std::getline(std::cin, line);) {
            fader.execute(line);
        }
    }
    lease.release();
    Util::Singleton<Util::SoundStreamWatcher>::destroy();
    return 0;
}
