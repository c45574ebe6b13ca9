// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecordListener.h"

#include <string.h>

namespace OrvaneDA {

SRecordListener::SRecordListener(int chunkSize) : mChunkSize(chunkSize) {
    if (chunkSize >= 1) {
        mChunk.reset(new char[chunkSize]);
    }
}

void SRecordListener::onDataHandled(char* data, int size) {
    if (mChunkSize < 1) {
        implDataHandled(data, size);
        return;
    }
    const std::unique_ptr<char[]> block(data);
    int position = 0;
    while (mBuffered + size - position >= mChunkSize) {
        char* chunk = new char[mChunkSize];
        memcpy(chunk, mChunk.get(), mBuffered);
        const int missing = mChunkSize - mBuffered;
        memcpy(chunk + mBuffered, data + position, missing);
        position += missing;
        mBuffered = 0;
        implDataHandled(chunk, mChunkSize);
    }
    memcpy(mChunk.get() + mBuffered, data + position, size - position);
    mBuffered += size - position;
}

}  // namespace OrvaneDA
