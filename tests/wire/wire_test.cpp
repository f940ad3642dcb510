#include <gtest/gtest.h>

#include "RowPlayer.h"

namespace DOVA::test {
namespace {

/// One text that is a single object, of which no proper prefix is JSON.
bool isCuttable(const WireRow& row) {
    const QJsonValue text = row.content["text"];
    return text.isObject() && !text.toObject().contains("parts");
}

class WireTest : public testing::TestWithParam<WireRow> {};

TEST_P(WireTest, replaysAsWritten) {
    RowPlayer(GetParam()).play();
}

/// Rows that begin offline have a program of their own, since a process goes online once.
INSTANTIATE_TEST_SUITE_P(
    Rows, WireTest,
    testing::ValuesIn(readRows({"outgoing", "descriptions", "incoming", "lifecycle"},
                               [](const WireRow& row) { return row.beginsOnline(); })));

class WireTruncationTest : public testing::TestWithParam<WireRow> {};

TEST_P(WireTruncationTest, everyPrefixIsDropped) {
    RowPlayer(GetParam()).playPrefixes();
}

INSTANTIATE_TEST_SUITE_P(Rows, WireTruncationTest,
                         testing::ValuesIn(readRows({"outgoing", "incoming"}, isCuttable)));

}  // namespace
}  // namespace DOVA::test
