#include "runtime/Timer.h"

#include "HostFixture.h"

namespace DOVA::runtime {

using std::chrono::milliseconds;
using testing::ElementsAre;

class TimerTest : public HostFixture {
protected:
    TimerTest() { start(); }
    std::vector<int> ran;
};

TEST_F(TimerTest, CallsInTheOrderOfDueTimes) {
    host->after(milliseconds(20), [&] {
        ran.push_back(3);
        host->quit();
    });
    host->after(milliseconds(10), [&] { ran.push_back(2); });
    host->after(milliseconds(-10), [&] { ran.push_back(1); });
    host->run();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(TimerTest, DoesNotComeOnceCancelled) {
    Timer cancelled = host->after(milliseconds(1), [&] { ran.push_back(1); });
    host->after(milliseconds(0), [&] { cancelled.cancel(); });
    host->after(milliseconds(10), [&] { host->quit(); });
    host->run();
    EXPECT_THAT(ran, ElementsAre());
}

TEST_F(TimerTest, CancelledByACallOfTheSameMomentDoesNotCome) {
    Timer second;
    host->post([&] {
        host->after(milliseconds(0), [&] { second.cancel(); });
        second = host->after(milliseconds(0), [&] { ran.push_back(2); });
        host->after(milliseconds(5), [&] { host->quit(); });
    });
    host->run();
    EXPECT_THAT(ran, ElementsAre());
}

TEST_F(TimerTest, DropsItsCallableAtOnceWhenCancelled) {
    const auto kept = std::make_shared<int>();
    Timer timer = host->after(std::chrono::hours(1), [kept] {});
    EXPECT_EQ(kept.use_count(), 2);
    timer.cancel();
    EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(TimerTest, MayCancelItselfWhileItRuns) {
    Timer timer;
    const auto kept = std::make_shared<int>(42);
    timer = host->after(milliseconds(0), [&, kept] {
        timer.cancel();
        ran.push_back(*kept);
        host->quit();
    });
    host->run();
    EXPECT_THAT(ran, ElementsAre(42));
}

TEST_F(TimerTest, IsPendingUntilItRunsOrIsCancelled) {
    Timer nothing;
    Timer soon = host->after(milliseconds(0), [&] { ran.push_back(soon.isPending()); });
    Timer later = host->after(std::chrono::hours(24 * 365 * 1000), [] {});
    Timer copy = later;
    EXPECT_TRUE(soon.isPending() && later.isPending() && !nothing.isPending());
    copy.cancel();
    EXPECT_FALSE(later.isPending());
    host->after(milliseconds(1), [&] { host->quit(); });
    host->run();
    EXPECT_THAT(ran, ElementsAre(0));
}

TEST_F(TimerTest, OutlivesTheHost) {
    Timer timer = host->after(std::chrono::hours(1), [] {});
    host.reset();
    EXPECT_FALSE(timer.isPending());
    timer.cancel();
}

}  // namespace DOVA::runtime
