#include "runtime/Timer.h"

#include "HostFixture.h"

namespace DOVA::runtime {

using std::chrono::hours;
using std::chrono::milliseconds;
using testing::ElementsAre;

class TimerTest : public HostFixture {
protected:
    TimerTest() { start(); }
    std::vector<int> ran;
};

TEST_F(TimerTest, CallsInTheOrderOfDueTimesWhatIsNotCancelled) {
    host->after(milliseconds(20), [&] {
        ran.push_back(3);
        host->quit();
    });
    const Timer forEver = host->after(hours(24 * 365 * 1000), [&] { ran.push_back(4); });
    Timer cancelled = host->after(milliseconds(5), [&] { ran.push_back(0); });
    Timer ofTheSameMoment;
    host->after(milliseconds(10), [&] { ran.push_back(2); });
    host->after(milliseconds(-10), [&] {
        ran.push_back(1);
        cancelled.cancel();
        host->after(milliseconds(0), [&] { ofTheSameMoment.cancel(); });
        ofTheSameMoment = host->after(milliseconds(0), [&] { ran.push_back(0); });
    });
    host->run();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
    EXPECT_TRUE(forEver.isPending());
}

TEST_F(TimerTest, MayCancelItselfWhileItRuns) {
    const auto kept = std::make_shared<int>(42);
    Timer timer;
    timer = host->after(milliseconds(0), [&, kept] {
        EXPECT_FALSE(timer.isPending());
        timer.cancel();
        ran.push_back(*kept);
        host->quit();
    });
    EXPECT_TRUE(timer.isPending());
    host->run();
    EXPECT_THAT(ran, ElementsAre(42));
}

TEST_F(TimerTest, CancelsForEveryCopyDropsItsCallableAtOnceAndOutlivesTheHost) {
    const auto kept = std::make_shared<int>();
    Timer other = host->after(hours(1), [] {});
    const Timer timer = host->after(hours(1), [kept] {});
    Timer copy = timer;
    EXPECT_TRUE(timer.isPending() && !Timer().isPending());
    copy.cancel();
    EXPECT_FALSE(timer.isPending());
    EXPECT_EQ(kept.use_count(), 1);
    host.reset();
    EXPECT_FALSE(other.isPending());
    other.cancel();
}

}  // namespace DOVA::runtime
