// SPDX-License-Identifier: Apache-2.0
// A program whose output is not read: its standard output and error are pipes that nobody reads at first.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <future>
#include <sstream>
#include <string>
#include <thread>

#include "room/Child.h"
#include "support/PrivateBus.h"

namespace {

using testing::HasSubstr;

struct Pipe {
    Pipe() { EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0); }
    ~Pipe() {
        close(ends[0]);
        closeWriter();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void closeWriter() {
        close(ends[1]);
        ends[1] = -1;
    }
    void fill() const {
        fcntl(ends[1], F_SETFL, O_NONBLOCK);
        while (write(ends[1], "x", 1) == 1) {
        }
        fcntl(ends[1], F_SETFL, 0);
    }
    // Everything until all writers are gone, on another thread.
    std::future<std::string> read() const {
        return std::async(std::launch::async, [end = ends[0]] {
            std::string text;
            char buffer[4096];
            for (ssize_t size = 0; (size = ::read(end, buffer, sizeof buffer)) > 0;) {
                text.append(buffer, static_cast<size_t>(size));
            }
            return text;
        });
    }
    std::array<int, 2> ends{};
};

// False if the watchdog ends first.
bool ends(Child& child) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (child.running() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return !child.running();
}

class Writer {
public:
    explicit Writer(const std::string& what) {
        mId = fork();
        if (mId == 0) {
            setenv("ORVANE_LOG", "stderr", 1);
            dup2(mIn.ends[0], STDIN_FILENO);
            dup2(out.ends[1], STDOUT_FILENO);
            dup2(error.ends[1], STDERR_FILENO);
            dup2(mMeeting.ends[1], 3);
            execl(LOG_WRITER, LOG_WRITER, what.c_str(), nullptr);
            _exit(127);
        }
        out.closeWriter();
        error.closeWriter();
        mMeeting.closeWriter();
    }
    ~Writer() {
        kill(mId, SIGKILL);
        waitpid(mId, nullptr, 0);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // Whether the program reaches its meeting point, where it waits for letGo().
    bool arrives() {
        auto meeting = std::async(std::launch::async, [this] {
            char byte = 0;
            return read(mMeeting.ends[0], &byte, 1) == 1;
        });
        if (meeting.wait_for(std::chrono::seconds(20)) != std::future_status::ready) {
            kill(mId, SIGKILL);
            meeting.wait();
            return false;
        }
        return meeting.get();
    }
    void letGo() { EXPECT_EQ(write(mIn.ends[1], ".", 1), 1); }

    Pipe out;
    Pipe error;

private:
    Pipe mIn;
    Pipe mMeeting;
    pid_t mId = 0;
};

struct Received {
    int lines = 0;
    int lost = 0;
    std::string last;
};

Received sorted(const std::string& text) {
    Received received;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const size_t report = line.find(" log lines were lost");
        if (report != std::string::npos) {
            const size_t number = line.find_last_not_of("0123456789", report - 1);
            received.lost += std::stoi(line.substr(number + 1));
        } else if (line.find("last") != std::string::npos) {
            received.last = line;
        } else {
            EXPECT_EQ(line.size(), line.front() == 'y' ? 300U : 306U) << line;
            ++received.lines;
        }
    }
    return received;
}

}  // namespace

TEST(AStuckReader, DoesNotStopTheProgramAndLearnsHowManyLinesItMissed) {
    Writer writer("flood and last");
    ASSERT_TRUE(writer.arrives()) << "the reader does not block the program";
    auto out = writer.out.read();
    auto error = writer.error.read();
    writer.letGo();
    for (const auto& [text, last] :
         {std::pair(out.get(), std::string("last")), std::pair(error.get(), std::string("I/tag last"))}) {
        const Received received = sorted(text);
        EXPECT_GT(received.lost, 0);
        EXPECT_EQ(received.lines + received.lost, 5000);
        EXPECT_EQ(received.last, last);
    }
}

TEST(AStuckReader, ReceivesEveryLineBeforeAnAbort) {
    Writer writer("abort");
    ASSERT_TRUE(writer.arrives()) << "the reader does not block the program";
    auto error = writer.error.read();
    writer.letGo();
    const Received received = sorted(error.get());
    EXPECT_EQ(received.lines, 800);
    EXPECT_EQ(received.lost, 0);
}

TEST(AStuckReader, DoesNotKeepTheServiceFromStartingAndStopping) {
    const PrivateBus bus;
    char name[] = "/tmp/orvane-stuck-XXXXXX";
    const std::string home = mkdtemp(name);
    Pipe output;
    output.fill();
    {
        Child service({SERVICE},
                      {"ORVANE_LOG=stderr", "HOME=" + home, "XDG_RUNTIME_DIR=" + home, "XDG_CONFIG_HOME=" + home,
                       "PULSE_SERVER=/nowhere", "ORVANE_DATA_ROOT=" DATA_ROOT},
                      output.ends[1]);
        EXPECT_EQ(Child({"gdbus", "wait", "--session", "--timeout=20", "org.orvane.da-service"}).wait(), 0);
        service.signal(SIGTERM);
        EXPECT_TRUE(ends(service)) << "the reader does not block the program";
        service.kill();
    }
    std::filesystem::remove_all(home);
}
