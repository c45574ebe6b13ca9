// SPDX-License-Identifier: Apache-2.0
// The program that turns the music down is killed. Another program plays the music.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sound_manager.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string>

#include "room/SoundRoom.h"
#include "support/Eventually.h"

namespace {

int level() {
    int now = -1;
    sound_manager_get_volume(SOUND_TYPE_MEDIA, &now);
    return now;
}

int openFifo(const std::string& path) {
    mkfifo(path.c_str(), 0600);
    return open(path.c_str(), O_RDWR | O_CLOEXEC);
}

// Starts when music plays at the user's level, 13.
class TheFadeProgram : public testing::Test {
protected:
    TheFadeProgram() {
        sound_manager_set_volume(SOUND_TYPE_MEDIA, 13);
        EXPECT_TRUE(eventually([] { return system("pactl list short sink-inputs | grep -q .") == 0; }));
        mProgram.emplace(std::vector<std::string>{"sh", "-c", "exec \"$0\" < \"$1\"", FADE_PROGRAM, mInputPath});
    }
    ~TheFadeProgram() override { close(mInput); }

    void command(const std::string& line) const { dprintf(mInput, "%s\n", line.c_str()); }

    SoundRoom mRoom;
    Child mMusic{{"pacat", "-d", "room", "--raw", "/dev/zero"}};
    std::string mInputPath = mRoom.folder() + "/commands";
    int mInput = openFifo(mInputPath);
    std::optional<Child> mProgram;
};

TEST_F(TheFadeProgram, LeavesTheUsersVolumeWhenItIsKilledHalfway) {
    command("decrease 3");
    ASSERT_TRUE(eventually([] { return level() < 9; }));
    mProgram->kill();
    EXPECT_TRUE(eventually([] { return level() == 13; })) << level();
}

TEST_F(TheFadeProgram, LeavesTheUsersVolumeWhenItIsKilledWhileItRestores) {
    command("decrease 0.5");
    ASSERT_TRUE(eventually([] { return level() == 2; }));
    command("volume 11");
    command("restore 5");
    ASSERT_TRUE(eventually([] { return level() > 4; }));
    mProgram->kill();
    EXPECT_TRUE(eventually([] { return level() == 11; })) << level();
}

}  // namespace
