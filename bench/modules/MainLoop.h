// SPDX-License-Identifier: Apache-2.0
// The main loop, while a benchmark lives.
#pragma once

namespace bench {

class MainLoop {
public:
    MainLoop();
    ~MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    // Runs until quit(). Throws std::runtime_error, which names what was waited for, when that takes half a minute.
    void run(const char* what);
    static void quit();
};

}  // namespace bench
