#include "Ledger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Histogram.h"
#include "support/RowNames.h"

namespace DOVA::load {

using test::operator<<;

struct LedgerRow {
    const char* name;
    std::vector<std::uint64_t> handled;
    const char* says;
};

class LedgerTest : public testing::TestWithParam<LedgerRow> {};

TEST_P(LedgerTest, TellsWhatIsMissingLateAndRepeated) {
    Ledger ledger;
    Handled last;
    for (const std::uint64_t number : GetParam().handled) {
        last = ledger.handle({"a", number});
    }
    EXPECT_EQ(last.text(), GetParam().says);
    EXPECT_EQ(Handled::parse(last.text())->text(), last.text());
}

constexpr std::uint64_t s_huge = ~std::uint64_t{0};
INSTANTIATE_TEST_SUITE_P(
    , LedgerTest,
    testing::Values(
        LedgerRow{"InOrder", {1, 2, 3}, "a 3 0 0 0"}, LedgerRow{"Missing", {2, 5}, "a 5 3 0 0"},
        LedgerRow{"Late", {1, 3, 2}, "a 2 0 1 0"}, LedgerRow{"Repeated", {1, 2, 2, 1}, "a 1 0 0 2"},
        LedgerRow{"RepeatedLate", {2, 1, 1}, "a 1 0 1 1"},
        LedgerRow{"Huge", {1, s_huge}, "a 18446744073709551615 18446744073709551613 0 0"}),
    test::RowName());

TEST(LedgerTexts, AreNothingWhenAnyPartIsWrong) {
    for (const char* const text : {"", "a", "a 1 0 0", "a 0 0 0 0", " 1 0 0 0", "a b 1 0 0 0",
                                   "a 1 0 0 0 ", "a 1 0 0 -1", "a 1 0 0 99999999999999999999"}) {
        EXPECT_FALSE(Handled::parse(text)) << text;
    }
}

TEST(HistogramTest, AnswersPercentilesCloselyAtEverySize) {
    for (const std::uint64_t unit : {1U, 1000U, 1000000000U}) {
        Histogram histogram;
        for (std::uint64_t value = 1; value <= 1000; ++value) {
            histogram.add(value * unit);
        }
        for (const double share : {0.001, 0.5, 0.9, 1.0}) {
            const double exact = share * 1000 * static_cast<double>(unit);
            EXPECT_GE(static_cast<double>(histogram.percentile(share)), exact);
            EXPECT_LE(static_cast<double>(histogram.percentile(share)), exact * 1.017);
        }
        EXPECT_EQ(histogram.largest(), 1000 * unit);
    }
    EXPECT_EQ(Histogram().percentile(0.5), 0U);
}

}  // namespace DOVA::load
