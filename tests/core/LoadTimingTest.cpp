#include <gtest/gtest.h>

#include "core/LoadTiming.h"

TEST(LoadTiming, StartUpIsReportedOnceFromTheProcessStart)
{
    LoadTiming timing;
    timing.initStarted(10.0, 0.05);
    timing.initFinished(10.25);
    const auto line = timing.frameShown(10.5, 0.8, true);
    ASSERT_TRUE(line);
    EXPECT_EQ(*line, "Start-up: first menu frame 800 ms after the process started (before init 50 ms, game init 250 ms)");
    EXPECT_FALSE(timing.startupPending());
    EXPECT_FALSE(timing.frameShown(11.0, 1.3, true));

    // Without /proc the wait is timed from init.
    LoadTiming noProc;
    noProc.initStarted(2.0);
    EXPECT_EQ(*noProc.frameShown(2.5, -1.0, false), "Start-up: first frame 500 ms after game init began");

    // The process's own age: a wrong /proc field would give the machine's uptime or garbage.
    const double age = LoadTiming::processAgeSeconds();
    EXPECT_GT(age, 0.0);
    EXPECT_LT(age, 600.0);
}

TEST(LoadTiming, LevelChangeRunsFromTheFirstRequestToTheShownFrame)
{
    LoadTiming timing;
    timing.levelRequested("quay", 1.0, 100);
    // Not loaded yet: nothing to report.
    EXPECT_FALSE(timing.levelShown(1.1, 101));
    // The load carrying out the request asks again; the wait began earlier.
    timing.levelRequested("quay", 1.05, 101);
    timing.levelLoaded(1.2);
    const auto line = timing.levelShown(1.5, 104);
    ASSERT_TRUE(line);
    EXPECT_EQ(*line, "Level change to quay: first drawn step 500 ms after the request (loading 200 ms, 4 frames)");
    EXPECT_FALSE(timing.levelShown(1.6, 105));

    // A failed load reports nothing, and the next change starts afresh.
    timing.levelRequested("missing", 2.0, 200);
    timing.levelFailed();
    timing.levelLoaded(2.1);
    EXPECT_FALSE(timing.levelShown(2.2, 201));
    timing.levelRequested("stores", 3.0, 300);
    timing.levelLoaded(3.1);
    EXPECT_EQ(*timing.levelShown(3.3, 302),
              "Level change to stores: first drawn step 300 ms after the request (loading 100 ms, 2 frames)");

    // A request before the loaded level is shown waits for the new load.
    timing.levelRequested("quay", 4.0, 400);
    timing.levelLoaded(4.1);
    timing.levelRequested("stores", 4.2, 401);
    EXPECT_FALSE(timing.levelShown(4.3, 402));
    timing.levelLoaded(4.4);
    EXPECT_EQ(*timing.levelShown(4.5, 403),
              "Level change to stores: first drawn step 500 ms after the request (loading 400 ms, 3 frames)");
}
