// SPDX-License-Identifier: Apache-2.0
#include "Util/Singleton.h"

#include <atomic>
#include <thread>

#include "unit/Fixture.h"

using Util::Singleton;

namespace {

std::atomic<int> made{0};
std::atomic<bool> asked{false};  // by the second thread

// Its constructor waits until a second thread asks for the instance.
struct Slow {
    Slow() {
        ++made;
        fake::platform().waitUntil([] { return asked.load(); });
        fake::platform().waitUntil([] { return made > 1; }, std::chrono::milliseconds(100));
    }
};

struct Counted {
    Counted() { ++made; }
};

}  // namespace

class SingletonTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        made = 0;
        asked = false;
    }
};

TEST_F(SingletonTest, TwoThreadsThatUseTheSingletonAtOnceGetOneInstance) {
    Slow* seen = nullptr;
    std::thread second([&] {
        fake::platform().waitUntil([] { return made == 1; });
        asked = true;
        seen = Singleton<Slow>::getInstance();
    });
    Slow* first = Singleton<Slow>::getInstance();
    second.join();
    EXPECT_EQ(made, 1);
    EXPECT_EQ(seen, first);
    Singleton<Slow>::destroy();
}

TEST_F(SingletonTest, AUseAfterDestructionCreatesANewInstance) {
    EXPECT_EQ(Singleton<Counted>::mInstance, nullptr);
    EXPECT_EQ(Singleton<Counted>::getInstance(), Singleton<Counted>::getInstance());
    EXPECT_EQ(made, 1);
    Singleton<Counted>::destroy();
    EXPECT_EQ(Singleton<Counted>::mInstance, nullptr);
    EXPECT_NE(Singleton<Counted>::getInstance(), nullptr);
    EXPECT_EQ(made, 2);
    Singleton<Counted>::destroy();
}
