// SPDX-License-Identifier: Apache-2.0
#include "apps/Ducker.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace sim {

namespace {

constexpr char kDown[] = "decrease 0.5\n";
constexpr char kUp[] = "restore 0.8\n";

}  // namespace

Ducker::Ducker(Record& record) : mRecord(record) {
    const char* program = getenv("ORVANE_SIM_DUCKER");
    if (program == nullptr) {
        return;
    }
    gio::Error fault;
    const auto flags = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE);
    mProgram.reset(g_subprocess_new(flags, fault.out(), program, nullptr));
    if (!mProgram) {
        fprintf(stderr, "cannot start the volume program: %s\n", fault.message().c_str());
        return;
    }
    mOutput.reset(g_data_input_stream_new(g_subprocess_get_stdout_pipe(mProgram.get())));
    readLine();
}

void Ducker::readLine() {
    g_data_input_stream_read_line_async(mOutput.get(), G_PRIORITY_DEFAULT, nullptr, onLine, this);
}

void Ducker::onLine(GObject*, GAsyncResult* result, gpointer data) noexcept {
    auto& self = *static_cast<Ducker*>(data);
    const gio::Text line(g_data_input_stream_read_line_finish(self.mOutput.get(), result, nullptr, nullptr));
    if (line) {
        self.mRecord.write("fade", {{"line", line.get()}});
        self.readLine();
    }
}

void Ducker::duck(bool down) {
    if (mProgram && mDown != down) {
        mDown = down;
        write(down ? kDown : kUp);
    }
}

void Ducker::write(const char* line) {
    gio::Error fault;
    GOutputStream* input = g_subprocess_get_stdin_pipe(mProgram.get());
    if (g_output_stream_write_all(input, line, strlen(line), nullptr, nullptr, fault.out()) == FALSE) {
        fprintf(stderr, "the volume program has ended: %s\n", fault.message().c_str());
    }
}

}  // namespace sim
