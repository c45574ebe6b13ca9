// SPDX-License-Identifier: Apache-2.0
// The program behind script/run, as a user at a terminal sees it.
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

#include "appliance/environment/Folder.h"
#include "appliance/processes/Process.h"
#include "appliance/processes/Until.h"
#include "appliance/sound/Speech.h"

namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kWatchdogSeconds = 30;

// A run of the program. Processes that it leaves behind become children of this process.
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
        sim::until(
            "the program prints " + text, [&] { return output().find(text) != std::string::npos; }, kWatchdogSeconds);
        // While this handle is open, the program's private /tmp outlives the program.
        const std::string tmp = "/proc/" + std::to_string(mProgram->id()) + "/root/tmp";
        mTmp = open(tmp.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }
    void interrupt(int signal) const { kill(mProgram->id(), signal); }
    int end() { return mProgram->wait(); }
    void untilChildless() {
        const auto childless = [] {
            while (waitpid(-1, nullptr, WNOHANG) > 0) {
            }
            return waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD;
        };
        sim::until("all processes of the program have ended", childless, kWatchdogSeconds);
    }
    // The directories of appliances that it created in its /tmp.
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

// The user's own sound server, which PULSE_SERVER names.
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
    sim::until("the sound server has a socket", [&] { return fs::exists(socket); });
    return server;
}

// Sends the signal at that moment and expects that the program ends with everything that it started.
void endsAt(Program& run, int signal, const std::string& moment) {
    run.untilShown(moment);
    ASSERT_EQ(run.folders().size(), 1u);
    run.interrupt(signal);
    EXPECT_EQ(run.end(), 128 + signal);
    EXPECT_THAT(run.output(), EndsWith("run: interrupted\n"));
    EXPECT_THAT(run.output(), Not(HasSubstr("end of the service's log")));
    run.untilChildless();
    EXPECT_THAT(run.folders(), IsEmpty());
}

}  // namespace

TEST(AnInterruptedRun, EndsWhileTheServiceStarts) {
    Program run({});
    endsAt(run, SIGINT, "service starts");
}

TEST(AnInterruptedRun, EndsWhileASoundPlays) {
    const sim::Folder folder;
    Program run({"--wav", sim::silence(folder, 120)});
    endsAt(run, SIGTERM, "room plays");
}

TEST(ARunWithASoundInTmp, FindsItByItsRelativePath) {
    const sim::Folder folder;
    const std::string wav = sim::speak(folder, "open notes", "slt");
    fs::current_path(folder.path());
    Program run({"--wav", fs::path(wav).filename()});
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("org.orvane.sim.notes"));
}

TEST(ARunWithASoundInTmp, FindsItThroughASymbolicLink) {
    const sim::Folder folder;
    const std::string wav = folder / "a link.wav";
    fs::create_symlink(sim::speak(folder, "open notes", "slt"), wav);
    fs::current_path("/");
    Program run({"--wav", wav});
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("org.orvane.sim.notes"));
}

TEST(ARunWithAFileThatIsNotASound, EndsBeforeAnythingStarts) {
    const sim::Folder folder;
    const std::string text = folder.write("text.wav", "text");
    Program run({"--wav", text});
    EXPECT_EQ(run.end(), 1);
    EXPECT_THAT(run.output(), testing::MatchesRegex("run: " + text + " is not a sound file: [^\n]*\n"));
}

TEST(ARunWithTheUsersMicrophone, ListensUntilCtrlC) {
    const sim::Folder folder;
    const auto server = startSoundServer(folder, {"-L", "module-null-source"});
    Program run({"--mic"});
    run.untilShown("listening to your microphone");
    run.interrupt(SIGINT);
    EXPECT_EQ(run.end(), 0) << run.output();
    EXPECT_THAT(run.output(), HasSubstr("recognizer ready"));
}

TEST(ARunWithTheUsersMicrophone, ExplainsThatNoSoundServerAnswers) {
    setenv("PULSE_SERVER", "unix:/nowhere/pulse", 1);
    Program run({"--mic"});
    EXPECT_EQ(run.end(), 1);
    EXPECT_EQ(
        run.output(),
        "run: no sound server answers at unix:/nowhere/pulse; start PulseAudio or PipeWire, or set PULSE_SERVER to the "
        "address of a server that runs\n");
}

TEST(ARunWithTheUsersMicrophone, ReportsAMissingMicrophone) {
    const sim::Folder folder;
    const auto server = startSoundServer(folder, {"-L", "module-null-sink"});
    Program run({"--mic"});
    EXPECT_EQ(run.end(), 1);
    EXPECT_EQ(run.output(), "run: the sound server at unix:" + (folder / "sound") + " has no microphone\n");
}
