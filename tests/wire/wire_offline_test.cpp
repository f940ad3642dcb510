#include <gtest/gtest.h>

#include <cstdlib>

#include "RowPlayer.h"

namespace DOVA::test {
namespace {

class WireOfflineTest : public testing::TestWithParam<WireRow> {};

/// A process goes online once, so each row gets a child of its own; this one stays offline.
TEST_P(WireOfflineTest, replaysAsWritten) {
    const auto child = [] {
        RowPlayer(GetParam()).play();
        std::exit(testing::Test::HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, WireOfflineTest,
                         testing::ValuesIn(readRows({"lifecycle"}, [](const WireRow& row) {
                             return !row.beginsOnline();
                         })));

}  // namespace
}  // namespace DOVA::test
