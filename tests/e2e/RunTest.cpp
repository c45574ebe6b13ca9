// SPDX-License-Identifier: Apache-2.0
// What script/run hands its options to, as somebody at a terminal meets it.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "appliance/Folder.h"
#include "appliance/Process.h"
#include "appliance/Speech.h"
#include "lib/Record.h"

namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kWatchdogSeconds = 30;

template <typename Condition>
void until(const std::string& what, Condition condition) {
    for (const double end = sim::monotonicNow() + kWatchdogSeconds; !condition(); usleep(10000)) {
        if (sim::monotonicNow() > end) {
            throw std::runtime_error("this did not happen: " + what);
        }
    }
}

// A run of the program. What it leaves behind becomes this process's child.
class Program {
public:
    explicit Program(std::vector<std::string> words) : mBefore(folders("/tmp")) {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
        words.insert(words.begin(), APPLIANCE_PROGRAM);
        mProgram = std::make_unique<sim::Process>(words, mFolder / "output");
    }

    std::string output() const {
        std::ifstream file(mFolder / "output");
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void untilShown(const std::string& text) {
        until("it shows " + text, [&] { return output().find(text) != std::string::npos; });
        // Its /tmp, which ends with it for all who do not hold on to it.
        const std::string tmp = "/proc/" + std::to_string(mProgram->id()) + "/root/tmp";
        mTmp = open(tmp.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }
    void interrupt(int signal) const { kill(mProgram->id(), signal); }
    int end() { return mProgram->wait(); }
    void untilAlone() {
        until("its processes have ended", [] {
            while (waitpid(-1, nullptr, WNOHANG) > 0) {
            }
            return waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD;
        });
    }
    // The appliances' folders that it made in its /tmp.
    std::set<std::string> folders() const {
        std::set<std::string> made;
        const std::set<std::string> all = folders("/proc/self/fd/" + std::to_string(mTmp));
        std::set_difference(all.begin(), all.end(), mBefore.begin(), mBefore.end(), std::inserter(made, made.end()));
        return made;
    }

private:
    static std::set<std::string> folders(const std::string& tmp) {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(tmp)) {
            const std::string name = entry.path().filename();
            if (name.rfind("orvane-appliance-", 0) == 0) {
                names.insert(name);
            }
        }
        return names;
    }

    sim::Folder mFolder;
    std::set<std::string> mBefore;
    std::unique_ptr<sim::Process> mProgram;
    int mTmp = -1;
};

// A person's own, where PULSE_SERVER says.
std::unique_ptr<sim::Process> startSoundServer(const sim::Folder& folder, const std::vector<std::string>& modules) {
    const std::string socket = folder / "sound";
    setenv("HOME", folder.path().c_str(), 1);
    setenv("PULSE_SERVER", ("unix:" + socket).c_str(), 1);
    std::vector<std::string> words{"pulseaudio",
                                   "-n",
                                   "--daemonize=no",
                                   "--use-pid-file=no",
                                   "--exit-idle-time=-1",
                                   "-L",
                                   "module-native-protocol-unix auth-anonymous=1 socket=" + socket};
    words.insert(words.end(), modules.begin(), modules.end());
    auto server = std::make_unique<sim::Process>(words, folder / "pulse.log");
    until("the sound server stands", [&] { return fs::exists(socket); });
    return server;
}

// Ends, with everything that it started, before the sound could have ended.
void endsAt(Program& run, int signal, const std::string& moment) {
    run.untilShown(moment);
    ASSERT_EQ(run.folders().size(), 1u);
    run.interrupt(signal);
    EXPECT_EQ(run.end(), 128 + signal);
    EXPECT_THAT(run.output(), EndsWith("run: interrupted\n"));
    EXPECT_THAT(run.output(), Not(HasSubstr("last words")));
    run.untilAlone();
    EXPECT_THAT(run.folders(), IsEmpty());
}

}  // namespace

TEST(ARunThatIsInterrupted, EndsWhileTheServiceStarts) {
    Program run({});
    endsAt(run, SIGINT, "service starts");
}

TEST(ARunThatIsInterrupted, EndsWhileSomebodySpeaks) {
    const sim::Folder folder;
    Program run({"--wav", sim::silence(folder, 120)});
    endsAt(run, SIGTERM, "played");
}

TEST(ARunOfASoundInTmp, HearsItByItsRelativePath) {
    const sim::Folder folder;
    const std::string wav = sim::speak(folder, "open notes", "slt");
    fs::current_path(folder.path());
    Program run({"--wav", fs::path(wav).filename()});
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("org.orvane.sim.notes"));
}

TEST(ARunOfASoundInTmp, HearsItFromAnywhere) {
    const sim::Folder folder;
    const std::string wav = folder / "a link.wav";
    fs::create_symlink(sim::speak(folder, "open notes", "slt"), wav);
    fs::current_path("/");
    Program run({"--wav", wav});
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("org.orvane.sim.notes"));
}

TEST(ARunOfNoSound, EndsBeforeAnythingStarts) {
    const sim::Folder folder;
    const std::string text = folder.write("text.wav", "no sound");
    Program run({"--wav", text});
    EXPECT_EQ(run.end(), 1);
    EXPECT_THAT(run.output(), testing::MatchesRegex("run: " + text + " is no sound that can be played: [^\n]*\n"));
}

TEST(ARunWithOnesOwnMicrophone, ListensOnASoundServerInTmpUntilCtrlC) {
    const sim::Folder folder;
    const auto server = startSoundServer(folder, {"-L", "module-null-source"});
    Program run({"--mic"});
    run.untilShown("listening to your microphone");
    run.interrupt(SIGINT);
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("recognizer ready"));
}

TEST(ARunWithOnesOwnMicrophone, SaysWhatToDoWhenNoSoundServerAnswers) {
    setenv("PULSE_SERVER", "unix:/nowhere/pulse", 1);
    Program run({"--mic"});
    EXPECT_EQ(run.end(), 1);
    EXPECT_EQ(
        run.output(),
        "run: no sound server answers at unix:/nowhere/pulse; start PulseAudio or PipeWire, or name one that runs "
        "in PULSE_SERVER\n");
}

TEST(ARunWithOnesOwnMicrophone, SaysThatThereIsNone) {
    const sim::Folder folder;
    const auto server = startSoundServer(folder, {"-L", "module-null-sink"});
    Program run({"--mic"});
    EXPECT_EQ(run.end(), 1);
    EXPECT_EQ(run.output(), "run: the sound server at unix:" + (folder / "sound") + " has no microphone\n");
}
