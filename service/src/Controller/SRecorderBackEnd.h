// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

#include "Controller/SRecorder.h"

namespace OrvaneDA {

// The device states and the capture loop, which all back ends share. A back end adds the calls of its device.
class SRecorderBackEnd : public SRecorder {
public:
    int _audio_init() override;
    int _audio_prepare() override;
    void _audio_record(const StopFlag& stop) override;
    int _audio_unprepare() override;
    int _audio_deinit() override;

protected:
    // Where the log lines of the back ends differ.
    struct LogTexts {
        const char* init;  // at the entry of _audio_init, and so on
        const char* prepare;
        const char* unprepare;
        const char* deinit;
        const char* readFailed;
        const char* destroyFailed;  // null: a failure is not logged
    };
    struct Read {
        int error;  // 0: `bytes` bytes were read, perhaps none
        int bytes;
    };

    // The texts are literals.
    explicit SRecorderBackEnd(const LogTexts& texts) : mTexts(texts) {}
    // Stops the capture and gives up focus and device. For the back end's destructor, which can still make its calls.
    void shutDown();

    static constexpr int BUFFER_SIZE = 1024;  // bytes

private:
    // Device calls, made one at a time. They return 0 or the platform's code.
    // Returns whether the device can be prepared; `result` is the platform's code.
    virtual bool createDevice(int& result) = 0;
    virtual int bindStream() = 0;
    virtual int startDevice() = 0;
    // Blocks until samples arrive, at most BUFFER_SIZE bytes. Without the device mutex: stopDevice may end it.
    virtual Read readDevice(char* buffer) = 0;
    virtual int stopDevice() = 0;
    virtual int destroyDevice() = 0;

    std::unique_lock<std::mutex> takeTurn();
    void resetDevice();

    const LogTexts mTexts;
    std::mutex mDeviceMutex;  // the read thread may reset the device while the focus changes
    std::mutex mReadMutex;    // two starts close together make two read threads, which take turns
};

}  // namespace OrvaneDA
