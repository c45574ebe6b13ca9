// SPDX-License-Identifier: Apache-2.0
// Logs what the tests expect. A separate program, because the log chooses its destination before main().
#include <dlog.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <string>
#include <thread>
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

}  // namespace

int main(int, char** arguments) {
    if (strcmp(arguments[1], "priorities") == 0) {
        writeOnePerPriority();
    } else if (strcmp(arguments[1], "threads") == 0) {
        writeFromThreads();
    } else if (strcmp(arguments[1], "long") == 0) {
        return dlog_print(DLOG_INFO, "tag", "%s", std::string(100000, 'x').c_str()) > 0 ? 0 : 1;
    } else if (strcmp(arguments[1], "print") == 0) {
        printf("printed\n");
    }
    _exit(0);  // loses what is still in a buffer
}
