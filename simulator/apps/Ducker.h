// SPDX-License-Identifier: Apache-2.0
// Turns the music down while the assistant listens, by the program $ORVANE_SIM_DUCKER that reads orders line by line;
// without one the music plays on. What it says is recorded (fade). It ends with its input, however this process ends.
#pragma once

#include "lib/Pointer.h"
#include "lib/Record.h"

namespace sim {

class Ducker {
public:
    explicit Ducker(Record& record);
    Ducker(const Ducker&) = delete;
    Ducker& operator=(const Ducker&) = delete;

    void duck(bool down);

private:
    void order(const char* line);
    void listen();
    static void onLine(GObject* stream, GAsyncResult* result, gpointer self) noexcept;

    Record& mRecord;
    Pointer<GSubprocess> mProgram;
    Pointer<GDataInputStream> mWords;
    bool mDown = false;
};

}  // namespace sim
