// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>

namespace OrvaneDA {

// Receives the recorder's blocks, re-cut into chunks of a size of its own.
class SRecordListener {
public:
    // chunkSize in bytes; below 1, every block is passed through whole.
    explicit SRecordListener(int chunkSize);
    virtual ~SRecordListener() = default;
    SRecordListener(const SRecordListener&) = delete;
    SRecordListener& operator=(const SRecordListener&) = delete;

    // The recorder delivers only to enabled listeners. Any thread.
    void setEnabled(bool enabled) { mEnabled = enabled; }
    bool isEnabled() const { return mEnabled; }

    // On the recorder's read thread. `data` is a new[] array of `size` bytes and becomes the listener's.
    void onDataHandled(char* data, int size);

protected:
    // `data` is a new[] array of `size` bytes and becomes the implementation's. Must not add or clear listeners.
    virtual void implDataHandled(char* data, int size) = 0;

    std::atomic<bool> mEnabled{false};

private:
    std::unique_ptr<char[]> mChunk;  // fills up to the next whole chunk
    int mBuffered = 0;               // bytes in it
    int mChunkSize;
};

}  // namespace OrvaneDA
