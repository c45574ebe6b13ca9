// SPDX-License-Identifier: Apache-2.0
// The cost of one block on its way from the recorder to the wake engine, and the lower bound of that work.
#include <benchmark/benchmark.h>
#include <string.h>

#include <memory>
#include <mutex>

#include "Controller/SRecorder.h"
#include "Controller/Trigger/vocon_4_10/WakeupAudioIn.h"

namespace {

constexpr int BLOCK = 512;  // bytes, 256 samples

// A recorder without a device, whose blocks come from the benchmark.
class BenchRecorder : public OrvaneDA::SRecorder {
public:
    using SRecorder::deliver;
    int _audio_init() override { return 0; }
    int _audio_prepare() override { return 0; }
    void _audio_record(const StopFlag&) override {}
    int _audio_unprepare() override { return 0; }
    int _audio_deinit() override { return 0; }
};

char* noise() {
    static char block[BLOCK];
    for (int i = 0; i < BLOCK; ++i) {
        block[i] = static_cast<char>(i * 37);
    }
    return block;
}

void BlockFromRecorderToEngine(benchmark::State& state) {
    char* block = noise();
    BenchRecorder recorder;
    OrvaneDA::WakeupAudioIn feed;
    feed.setEnabled(true);
    recorder.addListener(&feed);
    for (auto _ : state) {
        recorder.deliver(block, BLOCK);
        void* data = nullptr;
        unsigned int size = 0;
        feed.FetchData(data, size);
        benchmark::DoNotOptimize(data);
        feed.ReturnData(data);
    }
}
BENCHMARK(BlockFromRecorderToEngine);

// One allocation, copy, and release of the block, and one uncontended lock.
void BlockFloor(benchmark::State& state) {
    char* block = noise();
    std::mutex mutex;
    for (auto _ : state) {
        std::unique_ptr<char[]> copy(new char[BLOCK]);
        memcpy(copy.get(), block, BLOCK);
        std::lock_guard<std::mutex> lock(mutex);
        benchmark::DoNotOptimize(copy.get());
    }
}
BENCHMARK(BlockFloor);

void LevelOfABlock(benchmark::State& state) {
    char* block = noise();
    for (auto _ : state) {
        benchmark::DoNotOptimize(OrvaneDA::SRecorder::_get_volume_decibel(block, BLOCK));
    }
}
BENCHMARK(LevelOfABlock);

}  // namespace
