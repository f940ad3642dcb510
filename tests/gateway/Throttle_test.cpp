#include "Throttle.h"

#include <gtest/gtest.h>

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;

class ThrottleTest : public testing::Test {
protected:
    Throttle m_throttle{100, 30};
    Throttle::Clock::time_point m_now{std::chrono::hours(1)};
};

TEST_F(ThrottleTest, givesTheBurstAndThenTheRate) {
    EXPECT_EQ(m_throttle.take(20, m_now), 20u);
    EXPECT_EQ(m_throttle.take(20, m_now), 10u);
    EXPECT_EQ(m_throttle.take(1, m_now), 0u);
    EXPECT_EQ(m_throttle.take(100, m_now + 105ms), 10u);
}

TEST_F(ThrottleTest, saysHowLongToWait) {
    m_throttle.take(30, m_now);
    const auto wait = m_throttle.waitFor(5);
    EXPECT_EQ(m_throttle.take(5, m_now + wait), 5u);
    EXPECT_EQ(m_throttle.take(1, m_now + wait), 0u) << "waited longer than needed";
}

TEST_F(ThrottleTest, neverHoldsMoreThanTheBurst) {
    EXPECT_EQ(m_throttle.take(1000, m_now), 30u);
    EXPECT_EQ(m_throttle.take(1000, m_now + 1h), 30u);
    EXPECT_LE(m_throttle.waitFor(1000), 301ms) << "more than the burst never comes";
}

}  // namespace
}  // namespace DOVA::gateway
