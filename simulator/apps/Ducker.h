// SPDX-License-Identifier: Apache-2.0
// Turns the media volume down and up through the program $ORVANE_SIM_DUCKER (orvane-volume-fade), whose output it
// records (event "fade"). Without the variable it does nothing. The program ends when its input closes, and therefore
// also when this process is killed.
#pragma once

#include "gio/GPointer.h"
#include "shared/Record.h"

namespace sim {

class Ducker {
public:
    explicit Ducker(Record& record);
    Ducker(const Ducker&) = delete;
    Ducker& operator=(const Ducker&) = delete;

    void duck(bool down);

private:
    void write(const char* line);
    void readLine();
    static void onLine(GObject* stream, GAsyncResult* result, gpointer self) noexcept;

    Record& mRecord;
    gio::Object<GSubprocess> mProgram;
    gio::Object<GDataInputStream> mOutput;
    bool mDown = false;
};

}  // namespace sim
