#include "Throttle.h"

#include <gtest/gtest.h>

namespace DOVA::session {

using namespace std::chrono_literals;

/// How many single tokens there are before the throttle is exhausted.
std::size_t room(Throttle throttle, Throttle::Clock::time_point now) {
    std::size_t count = 0;
    for (throttle.refill(now); !throttle.isExhausted(); ++count) {
        throttle.charge(1, now);
    }
    return count;
}

TEST(ThrottleTest, givesTheBurstThenTheRateAndSaysHowLongToWait) {
    const Throttle::Clock::time_point now{1h};
    Throttle throttle{100, 30};
    throttle.charge(20, now);
    EXPECT_EQ(room(throttle, now), 10u);
    throttle.charge(35, now);
    EXPECT_TRUE(throttle.isExhausted());
    EXPECT_EQ(room(throttle, now + 355ms), 10u) << "what was owed is paid first";
    EXPECT_EQ(room(throttle, now + 1h), 30u) << "never more than the burst";
    EXPECT_LE(throttle.waitFor(1000), 551ms) << "more than the burst never comes";
    EXPECT_EQ(room(throttle, now + throttle.waitFor(5)), 5u) << "neither too short nor too long";
    EXPECT_FALSE(throttle.isOverdrawn());
    throttle.charge(6, now);
    EXPECT_TRUE(throttle.isOverdrawn());
}

}  // namespace DOVA::session
