// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>

namespace OrvaneDA {

// Receives the recorder's blocks, split into chunks of the size that the listener chooses.
class SRecordListener {
public:
    // `chunkSize` is in bytes. If it is below 1, the listener receives every block unsplit.
    explicit SRecordListener(int chunkSize);
    virtual ~SRecordListener() = default;
    SRecordListener(const SRecordListener&) = delete;
    SRecordListener& operator=(const SRecordListener&) = delete;

    // The recorder delivers only to enabled listeners. Any thread.
    void setEnabled(bool enabled) { mEnabled = enabled; }
    bool isEnabled() const { return mEnabled; }

    // Called on the recorder's read thread. Takes ownership of `data`, a new[] array of `size` bytes.
    void onDataHandled(char* data, int size);

protected:
    // Takes ownership of `data`, a new[] array of `size` bytes. Must not add or clear listeners.
    virtual void implDataHandled(char* data, int size) = 0;

    std::atomic<bool> mEnabled{false};

private:
    std::unique_ptr<char[]> mChunk;  // the beginning of the next chunk
    int mBuffered = 0;               // bytes in mChunk
    int mChunkSize;
};

}  // namespace OrvaneDA
