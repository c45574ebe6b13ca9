// SPDX-License-Identifier: Apache-2.0
// Capture streams that are closed before the sound server has opened them.
#include <gtest/gtest.h>

#include <future>

#include "Captured.h"
#include "Listener.h"
#include "audio/Playing.h"
#include "audio/SoundServer.h"
#include "process/Owner.h"
#include "pulse/RecordStream.h"
#include "pulse/Requests.h"
#include "room/SoundRoom.h"
#include "speech_capture.h"

using namespace std::chrono_literals;

namespace {

// Returns after the server has processed every request of this process, including those that its replies caused.
void settle() {
    audio::whatPlays();
    audio::whatPlays();
}

// Runs `work` with a ready context under the lock of the loop. The server answers before this returns.
void withContext(const std::function<void(const pulse::Context&)>& work) {
    process::shared<audio::SoundServer>().ask([&](const pulse::Context& context) {
        work(context);
        return pulse::readLoudspeaker(context, [](const pulse::Volume&) {});
    });
}

constexpr pulse::RecordStream::Settings kSettings{"abandoned", nullptr, 16000, 1, 512};

pulse::RecordStream::Events whenFailed(std::function<void()> failed) {
    return {[] {}, [] {}, [](const void*, std::size_t) {}, [failed = std::move(failed)](const char*) { failed(); }};
}

}  // namespace

TEST(AStreamThatIsClosedWhileTheServerOpensIt, IsClosedAtTheServer) {
    const SoundRoom room;
    withContext([](const pulse::Context& context) {
        for (int times = 0; times < 50; ++times) {
            const pulse::RecordStream closed(context, kSettings, whenFailed([] {}));
        }
    });
    settle();
    EXPECT_EQ(captured::streams().size(), 0U);
}

TEST(StartsThatAreCanceledImmediately, LeaveNoStream) {
    const SoundRoom room;
    for (int times = 0; times < 25; ++times) {
        { const AudioIn canceled; }
        const AudioIn opening;
        audio::whatPlays();  // when this returns, the server has replied to the source's first request
    }
    settle();
    EXPECT_EQ(captured::streams().size(), 0U);
}

TEST(ASoundServerThatHangs, HasOneStreamPerReaderWhenItReturns) {
    SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.2);
    room.freeze();
    int16_t block[256];
    while (sse_read(block, 256) == 0) {
    }
    for (int times = 0; times < 8; ++times) {
        ASSERT_EQ(SpeechIn::reset(), 0);
        EXPECT_NE(sse_read(block, 256), 0);
    }
    room.thaw();
    do {
        ASSERT_EQ(SpeechIn::reset(), 0);
    } while (sse_read(block, 256) != 0);
    settle();
    EXPECT_EQ(captured::streams().size(), 1U);
}

// The library waits 30 seconds for an answer.
TEST(ASoundServerThatHangsUntilTheLibraryGivesUp, HasNoStreamWhenItReturns) {
    SoundRoom room;
    std::promise<void> failed;
    std::unique_ptr<pulse::RecordStream> stream;
    withContext([&](const pulse::Context& context) {
        room.freeze();
        stream = std::make_unique<pulse::RecordStream>(context, kSettings, whenFailed([&] { failed.set_value(); }));
    });
    ASSERT_EQ(failed.get_future().wait_for(50s), std::future_status::ready);
    room.thaw();
    settle();
    EXPECT_EQ(captured::streams().size(), 0U);
    const pulse::Mainloop::Lock lock(process::shared<audio::SoundServer>().loop());
    stream.reset();
}
