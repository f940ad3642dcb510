#include "Throttle.h"

#include <gtest/gtest.h>

namespace DOVA::gateway {

using namespace std::chrono_literals;

TEST(ThrottleTest, givesTheBurstThenTheRateAndSaysHowLongToWait) {
    const Throttle::Clock::time_point now{1h};
    Throttle throttle{100, 30};
    EXPECT_EQ(throttle.take(20, now), 20u);
    EXPECT_EQ(throttle.take(20, now), 10u);
    EXPECT_EQ(throttle.take(100, now + 105ms), 10u);
    EXPECT_EQ(throttle.take(1000, now + 1h), 30u) << "never more than the burst";
    EXPECT_LE(throttle.waitFor(1000), 301ms) << "more than the burst never comes";
    const auto wait = throttle.waitFor(5);
    EXPECT_EQ(throttle.take(6, now + 1h + wait), 5u) << "neither too short nor too long";
}

}  // namespace DOVA::gateway
