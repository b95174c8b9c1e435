#include <gtest/gtest.h>

#include "core/BasicTimer.h"
#include "core/Clock.h"
#include "core/ManualClock.h"

class BasicTimerTest : public ::testing::Test {
protected:
    void SetUp() override { Clock::install(&clock); }
    void TearDown() override { Clock::install(nullptr); }
    ManualClock clock{1000};
};

TEST_F(BasicTimerTest, FrameTimeIsTheGapBetweenTicksAndPauseRemovesThePausedSpan)
{
    BasicTimer t;
    t.start();
    clock.advance(20);
    t.tick();
    clock.advance(30);
    t.tick();
    const float before = t.frameTime();
    const float elapsedBefore = t.elapsed();
    EXPECT_FLOAT_EQ(before, 0.03f);
    EXPECT_FLOAT_EQ(elapsedBefore, 50.0f);
    t.pause();
    clock.advance(10000);
    t.resume();
    EXPECT_FALSE(t.paused);
    EXPECT_FLOAT_EQ(t.frameTime(), before);
    EXPECT_FLOAT_EQ(t.elapsed(), elapsedBefore);
    clock.advance(25);
    t.tick();
    EXPECT_FLOAT_EQ(t.frameTime(), 0.025f);
}

TEST(ClockConversion, TopBitStaysUnsigned)
{
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(0x80000000u), 2147483648.0f);
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(0xFFFFFFFFu), 4294967296.0f - 1.0f);
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(1234u), 1234.0f);
}
