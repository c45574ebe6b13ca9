// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "shared/Record.h"

namespace sim {

namespace {

constexpr double kStopSeconds = 20;
constexpr useconds_t kPollMicroseconds = 5000;

int codeOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

[[noreturn]] void become(char* const* words, int log) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    signal(SIGINT, SIG_IGN);  // Ctrl-C goes to all processes; the owner stops them in order
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    execvp(words[0], words);
    _exit(127);
}

}  // namespace

Process::Process(const std::vector<std::string>& words, const std::string& log) {
    std::vector<char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) {
        throw std::runtime_error("cannot write " + log);
    }
    mId = fork();
    if (mId == 0) {
        become(arguments.data(), file);
    }
    close(file);
    if (mId < 0) {
        mId = 0;
        throw std::runtime_error("cannot start " + words.front());
    }
}

bool Process::runs() {
    int status = 0;
    if (mId != 0 && waitpid(mId, &status, WNOHANG) == mId) {
        mCode = codeOf(status);
        mId = 0;
    }
    return mId != 0;
}

int Process::wait() {
    int status = 0;
    if (mId != 0 && waitpid(mId, &status, 0) == mId) {
        mCode = codeOf(status);
        mId = 0;
    }
    return mCode;
}

void Process::stop() {
    if (!runs()) {
        return;
    }
    ::kill(mId, SIGTERM);
    for (const double end = monotonicNow() + kStopSeconds; runs() && monotonicNow() < end;) {
        usleep(kPollMicroseconds);
    }
    kill();
}

void Process::kill() {
    if (runs()) {
        ::kill(mId, SIGKILL);
        wait();
    }
}

}  // namespace sim
