// SPDX-License-Identifier: Apache-2.0
// orvane-volume-fade: fades the media volume as standard input says, a line each, and draws the level as it moves:
//   decrease SECONDS    down, when something plays
//   restore SECONDS     back to the user's level
//   volume LEVEL        the user's level, 0 to 15; while it is turned down, what restore goes back to
// At the end of the input the level goes back. The product's own log stays silent, or the drawing would drown in it.
// The main thread reads; the sound manager's thread draws; each fade runs on the controller's fader thread.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>

#include "Util/Singleton.h"
#include "Util/Sound/SoundStreamWatcher.h"
#include "Util/Sound/VolumeController.h"

namespace {

using Clock = std::chrono::steady_clock;

// Standard output of before, the only one that still shows.
int quiet() {
    const int shown = dup(STDOUT_FILENO);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    return shown;
}

class Screen {
public:
    explicit Screen(int handle) : mHandle(handle) { sound_manager_set_volume_changed_cb(onChanged, this); }
    ~Screen() { sound_manager_unset_volume_changed_cb(onChanged, this); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void say(const std::string& words) const { dprintf(mHandle, "%s\n", words.c_str()); }
    void draw(unsigned level) const {
        const std::chrono::duration<double> time = Clock::now() - mStart;
        dprintf(mHandle, "%8.2f s  %2u %s\n", time.count(), level, std::string(level, '#').c_str());
    }

private:
    static void onChanged(sound_type_e type, unsigned level, void* self) noexcept {
        if (type == SOUND_TYPE_MEDIA) {
            static_cast<const Screen*>(self)->draw(level);
        }
    }

    int mHandle;
    Clock::time_point mStart = Clock::now();
};

class Hands {
public:
    explicit Hands(const Screen& screen) : mScreen(screen) { mScreen.draw(mMedia.getVolume()); }
    // Also stops a fade that is under way: without a sound server it would never arrive.
    ~Hands() {
        if (mFaded) {
            mMedia.restoreVolume(0);
        }
    }
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;

    void obey(const std::string& line) {
        std::istringstream words(line);
        std::string order;
        double value = 0;
        words >> order >> value;
        if (words.fail() || value < 0) {
            mScreen.say("decrease SECONDS, restore SECONDS or volume LEVEL, not: " + line);
        } else if (order == "decrease") {
            decrease(value);
        } else if (order == "restore") {
            restore(value);
        } else if (order == "volume") {
            mMedia.setVolume(static_cast<int>(value));
        } else {
            mScreen.say("no such order: " + line);
        }
    }

private:
    void decrease(double seconds) {
        if (mMedia.decreaseVolume(seconds) == 1) {
            mDucked = mFaded = true;
        } else {
            mScreen.say("not turned down: nothing plays, or it is low already");
        }
    }
    void restore(double seconds) {
        if (mDucked) {
            mMedia.restoreVolume(seconds);
            mDucked = false;
        }
    }

    const Screen& mScreen;
    Util::VolumeController mMedia{Util::MediaType::MEDIA};
    bool mDucked = false;
    bool mFaded = false;  // at least once
};

}  // namespace

int main() {
    const Screen screen(quiet());
    {
        Hands hands(screen);
        for (std::string line; std::getline(std::cin, line);) {
            hands.obey(line);
        }
    }
    Util::Singleton<Util::SoundStreamWatcher>::destroy();
    return 0;
}
