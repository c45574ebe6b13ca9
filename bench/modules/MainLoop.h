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

    // Runs until quit(). After half a minute, throws std::runtime_error with the text "timed out waiting until " +
    // `what`.
    void run(const char* what);
    static void quit();
};

}  // namespace bench
