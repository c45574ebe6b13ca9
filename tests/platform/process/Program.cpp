// SPDX-License-Identifier: Apache-2.0
// A program whose static object and thread still call the owner after main() has returned.
#include <cstdio>
#include <thread>

#include "process/Guard.h"

namespace {

struct Shared {
    ~Shared() { std::puts("the shared object is destroyed"); }
    int value = 7;
};

int read() {
    return process::guarded(-1, "read", [] { return process::shared<Shared>().value; });
}

struct Static {
    ~Static() { std::printf("the static object reads %d\n", read()); }
};

const Static outlivesMain;

}  // namespace

int main() {
    std::printf("main() reads %d\n", read());
    std::thread([] {
        while (read() == 7) {
        }
    }).detach();
    return 0;
}
