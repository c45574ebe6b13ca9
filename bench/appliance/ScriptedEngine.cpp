// SPDX-License-Identifier: Apache-2.0
#include "appliance/ScriptedEngine.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>

#include "shared/Record.h"

namespace nuance {

IWakeupCtx* IWakeupCtx::Create() {
    return new bench::ScriptedEngine;
}

void IWakeupCtx::Destroy(IWakeupCtx* ctx) {
    delete static_cast<bench::ScriptedEngine*>(ctx);
}

}  // namespace nuance

namespace bench {

namespace {

constexpr int kPollMs = 200;  // for the end
constexpr useconds_t kPauseMicroseconds = 1000;

std::string setting(const char* name) {
    const char* value = getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

ScriptedEngine::ScriptedEngine() {
    if (setting("BENCH_ENGINE_TAKES_AUDIO") == "yes") {
        mAudio = std::thread([this] { takeAudio(); });
    }
    if (const std::string pipe = setting("BENCH_ENGINE_DETECTIONS"); !pipe.empty()) {
        mDetections = std::thread([this, pipe] { takeDetections(pipe); });
    }
}

ScriptedEngine::~ScriptedEngine() {
    mQuit = true;
    for (std::thread* thread : {&mAudio, &mDetections}) {
        if (thread->joinable()) {
            thread->join();
        }
    }
}

void ScriptedEngine::takeAudio() {
    while (!mQuit) {
        void* data = nullptr;
        unsigned int size = 0;
        if (mListening && mAudioIn != nullptr) {
            mAudioIn.load()->FetchData(data, size);
        }
        if (data == nullptr) {
            usleep(kPauseMicroseconds);
            continue;
        }
        mAudioIn.load()->ReturnData(data);
    }
}

// Open for writing as well, so that the pipe does not end without another writer.
void ScriptedEngine::takeDetections(const std::string& pipe) {
    const int detections = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
    pollfd ready{detections, POLLIN, 0};
    while (!mQuit) {
        char byte = 0;
        if (poll(&ready, 1, kPollMs) == 1 && read(detections, &byte, 1) == 1) {
            callOnce();
        }
    }
    close(detections);
}

void ScriptedEngine::callOnce() {
    while (!mListening && !mQuit) {
        usleep(kPauseMicroseconds);
    }
    if (mQuit || mListener == nullptr) {
        return;
    }
    mListening = false;
    const double called = sim::monotonicNow();
    mListener.load()->OnWakeup("scripted", 100);
    sim::Record("engine").write("detection", {{"called", called}});
}

}  // namespace bench
