// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <string>
#include <system_error>

#include "mounts/MountNamespace.h"

namespace {

using testing::HasSubstr;

// The output of the shell command.
std::string outputOf(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[4096];
    for (size_t size = 0; (size = fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        output.append(buffer, size);
    }
    return pclose(pipe) == 0 ? output : "failed: " + output;
}

std::string log(const std::string& sink, const std::string& what, const std::string& redirection) {
    return outputOf("ORVANE_LOG=" + sink + " " LOG_WRITER " " + what + " " + redirection);
}

// Listens on the journal's socket, in a mount namespace that only this process and its children see. Prints what a
// program logs there. Ends with an error number where this user may not mount a file system.
[[noreturn]] void listenAsJournal(const std::string& what) {
    try {
        sim::enterMountNamespace();
    } catch (const std::system_error& error) {
        _exit(error.code().value());
    }
    if (mount("journal", "/run", "tmpfs", 0, nullptr) != 0) {
        _exit(errno);
    }
    std::filesystem::create_directories("/run/systemd/journal");
    sockaddr_un address{AF_UNIX, "/run/systemd/journal/socket"};
    const int listener = socket(AF_UNIX, SOCK_DGRAM, 0);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        _exit(errno);
    }
    const std::string shown = outputOf(LOG_WRITER " " + what + " 2>&1");
    printf("shown [%s]\n", shown.c_str());
    char datagram[65536];
    for (ssize_t size = 0; (size = recv(listener, datagram, sizeof datagram, MSG_DONTWAIT)) > 0;) {
        printf("%.*s--\n", static_cast<int>(size), datagram);
    }
    fflush(stdout);
    _exit(0);
}

// Stores what the journal receives from a program that has ended in `received`. Returns 0 or an error number.
int readJournal(const std::string& what, std::string& received) {
    int ends[2];
    if (pipe(ends) != 0) {
        return errno;
    }
    const pid_t child = fork();
    if (child == 0) {
        unsetenv("ORVANE_LOG");
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        listenAsJournal(what);
    }
    close(ends[1]);
    char buffer[4096];
    for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof buffer)) > 0;) {
        received.append(buffer, static_cast<size_t>(size));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : ECHILD;
}

}  // namespace

TEST(ALogToStandardError, ShowsPriorityTagAndText) {
    EXPECT_EQ(log("stderr", "priorities", "2>&1 >/dev/null"),
              "D/tag debug 1\nI/tag info two\nW/tag warning\nE/tag error\n");
}

TEST(ALogToStandardError, KeepsTheLinesOfSeveralThreadsApart) {
    std::istringstream lines(log("stderr", "threads", "2>&1"));
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        ASSERT_EQ(line, "I/tag " + std::string(300, line.back()));
    }
    EXPECT_EQ(count, 800);
}

TEST(ALogToStandardError, CutsALineThatIsTooLong) {
    const std::string line = log("stderr", "long", "2>&1");
    EXPECT_EQ(line, "I/tag " + std::string(4095, 'x') + "\n");
}

TEST(ALogToStandardError, IgnoresAClosedStandardError) {
    EXPECT_EQ(log("stderr", "priorities", "2>&-"), "");
}

TEST(ALogThatIsOff, WritesNothing) {
    EXPECT_EQ(log("off", "priorities", "2>&1"), "");
}

TEST(StandardOutput, IsLineBufferedInAPipe) {
    for (const char* sink : {"stderr", "off"}) {
        EXPECT_EQ(log(sink, "print", "2>&1"), "printed\n") << sink;
    }
}

TEST(ALogOnAMachineWithAJournal, GoesThereWithItsPriorityAndTag) {
    std::string received;
    const int error = readJournal("priorities", received);
    if (error == EPERM) {
        GTEST_SKIP() << "this user may not mount a file system here";
    }
    ASSERT_EQ(error, 0) << strerror(error);
    EXPECT_THAT(received, HasSubstr("shown []\n"));
    const std::pair<const char*, const char*> rows[] = {
        {"debug 1", "7"}, {"info two", "6"}, {"warning", "4"}, {"error", "3"}};
    for (const auto& [text, priority] : rows) {
        EXPECT_THAT(received,
                    HasSubstr(std::string("MESSAGE=") + text + "\nPRIORITY=" + priority + "\nSYSLOG_IDENTIFIER=tag\n"));
    }
}

TEST(ALogOnAMachineWithAJournal, GoesThereOnceTheProcessMayOpenFilesAgain) {
    std::string received;
    const int error = readJournal("'without files'", received);
    if (error == EPERM) {
        GTEST_SKIP() << "this user may not mount a file system here";
    }
    ASSERT_EQ(error, 0) << strerror(error);
    EXPECT_THAT(received, HasSubstr("MESSAGE=first"));
    EXPECT_THAT(received, HasSubstr("MESSAGE=second"));
}

TEST(ALogOnAMachineWithAJournal, DoesNotWaitForAJournalThatHangs) {
    std::string received;
    const int error = readJournal("flood > /dev/null", received);
    if (error == EPERM) {
        GTEST_SKIP() << "this user may not mount a file system here";
    }
    ASSERT_EQ(error, 0) << strerror(error);
    EXPECT_THAT(received, HasSubstr("shown []\n"));
    EXPECT_THAT(received, HasSubstr("MESSAGE=xxx"));
}
