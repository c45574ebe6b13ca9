// SPDX-License-Identifier: Apache-2.0
// Ecore's main loop, for the duration of a measurement.
#pragma once

namespace bench {

class MainLoop {
public:
    MainLoop();
    ~MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    // Runs until quit(). Throws std::runtime_error that names `what`, a clause, after half a minute.
    void run(const char* what);
    static void quit();
};

}  // namespace bench
