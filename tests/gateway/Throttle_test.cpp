#include "Throttle.h"

#include <gtest/gtest.h>

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;

constexpr Throttle::Clock::time_point kNow{std::chrono::hours(1)};

TEST(ThrottleTest, givesTheBurstAndThenTheRate) {
    Throttle throttle{100, 30};
    EXPECT_EQ(throttle.take(20, kNow), 20u);
    EXPECT_EQ(throttle.take(20, kNow), 10u);
    EXPECT_EQ(throttle.take(100, kNow + 105ms), 10u);
    EXPECT_EQ(throttle.take(1000, kNow + 1h), 30u) << "never more than the burst";
    EXPECT_LE(throttle.waitFor(1000), 301ms) << "more than the burst never comes";
}

TEST(ThrottleTest, saysHowLongToWait) {
    Throttle throttle{100, 30};
    throttle.take(30, kNow);
    const auto wait = throttle.waitFor(5);
    EXPECT_EQ(throttle.take(6, kNow + wait), 5u) << "neither too short nor longer than needed";
}

}  // namespace
}  // namespace DOVA::gateway
