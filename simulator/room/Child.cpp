// SPDX-License-Identifier: Apache-2.0
#include "room/Child.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> list;
    list.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        list.push_back(text.data());
    }
    list.push_back(nullptr);
    return list;
}

// This process's environment with `added`, which replaces variables of the same name.
std::vector<std::string> environmentWith(const std::vector<std::string>& added) {
    std::vector<std::string> all = added;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        bool replaced = false;
        for (const std::string& other : added) {
            replaced = replaced || other.compare(0, other.find('=') + 1, text, 0, text.find('=') + 1) == 0;
        }
        if (!replaced) {
            all.push_back(text);
        }
    }
    return all;
}

}  // namespace

Child::Child(const std::vector<std::string>& words, const std::vector<std::string>& environment, int output) {
    std::vector<std::string> command{"setpriv", "--pdeathsig", "KILL"};
    command.insert(command.end(), words.begin(), words.end());
    std::vector<std::string> variables = environmentWith(environment);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (output >= 0) {
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    }
    const int code = posix_spawnp(&mId, command[0].c_str(), &actions, &attributes, pointers(command).data(),
                                  pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    if (code != 0) {
        throw std::runtime_error("cannot run " + words[0]);
    }
}

Child::~Child() {
    stop();
}

Child::Child(Child&& other) noexcept : mId(std::exchange(other.mId, 0)) {}

Child& Child::operator=(Child&& other) noexcept {
    std::swap(mId, other.mId);
    return *this;
}

bool Child::running() {
    if (mId != 0 && waitpid(mId, nullptr, WNOHANG) == mId) {
        mId = 0;
    }
    return mId != 0;
}

void Child::signal(int number) const {
    if (mId != 0) {
        ::kill(mId, number);
    }
}

void Child::freeze() const {
    signal(SIGSTOP);
    siginfo_t stopped{};
    waitid(P_PID, static_cast<id_t>(mId), &stopped, WSTOPPED | WEXITED | WNOWAIT);
}

int Child::wait() {
    int status = 0;
    if (mId != 0) {
        waitpid(mId, &status, 0);
        mId = 0;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Child::stop() {
    signal(SIGTERM);
    signal(SIGCONT);
    wait();
}

void Child::kill() {
    signal(SIGKILL);
    wait();
}
