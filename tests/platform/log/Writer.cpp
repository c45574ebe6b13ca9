// SPDX-License-Identifier: Apache-2.0
// Logs what the tests expect. A separate program, because the log chooses its destination before main().
#include <dlog.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

void writeOnePerPriority() {
    dlog_print(DLOG_DEBUG, "tag", "debug %d", 1);
    dlog_print(DLOG_INFO, "tag", "info %s", "two");
    dlog_print(DLOG_WARN, "tag", "warning");
    dlog_print(DLOG_ERROR, "tag", "error");
}

void writeFromThreads() {
    std::vector<std::thread> threads;
    for (char letter : {'a', 'b', 'c', 'd'}) {
        threads.emplace_back([letter] {
            for (int i = 0; i < 200; ++i) {
                dlog_print(DLOG_INFO, "tag", "%s", std::string(300, letter).c_str());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

// Logs and prints more than a pipe and the queue behind it hold.
void flood() {
    for (int i = 0; i < 5000; ++i) {
        dlog_print(DLOG_INFO, "tag", "%s", std::string(300, 'x').c_str());
        printf("%s\n", std::string(300, 'y').c_str());
    }
}

// The process has as many open files as it may have when it logs its first line.
void writeWithoutFiles() {
    rlimit files{};
    getrlimit(RLIMIT_NOFILE, &files);
    const rlim_t usual = std::exchange(files.rlim_cur, 0);
    setrlimit(RLIMIT_NOFILE, &files);
    dlog_print(DLOG_INFO, "tag", "first");
    files.rlim_cur = usual;
    setrlimit(RLIMIT_NOFILE, &files);
    dlog_print(DLOG_INFO, "tag", "second");
}

// Signals to the test that this point is reached, and waits for its reply.
void meetTest() {
    char byte = '.';
    if (write(3, &byte, 1) != 1 || read(STDIN_FILENO, &byte, 1) != 1) {
        _exit(1);
    }
}

}  // namespace

int main(int, char** arguments) {
    const std::string what = arguments[1];
    if (what == "priorities") {
        writeOnePerPriority();
    } else if (what == "threads") {
        writeFromThreads();
    } else if (what == "without files") {
        writeWithoutFiles();
    } else if (what == "long") {
        return dlog_print(DLOG_INFO, "tag", "%s", std::string(100000, 'x').c_str()) > 0 ? 0 : 1;
    } else if (what == "print") {
        printf("printed\n");
        _exit(0);  // loses what is still in a buffer
    } else if (what == "flood") {
        flood();
    } else if (what == "flood and last") {
        flood();
        meetTest();
        dlog_print(DLOG_INFO, "tag", "last");
        printf("last\n");
    } else if (what == "abort") {
        writeFromThreads();
        meetTest();
        abort();
    }
    return 0;
}
