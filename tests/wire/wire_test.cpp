#include <gtest/gtest.h>

#include "RowPlayer.h"

namespace DOVA::test {
namespace {

/// Rows that begin offline have a program of their own, since a process goes online once.
bool isOnline(const WireRow& row) {
    return row.content["online"].toBool(true);
}

std::vector<WireRow> onlineRows() {
    std::vector<WireRow> all;
    for (const char* folder : {"outgoing", "descriptions", "incoming", "lifecycle"}) {
        for (WireRow& row : readRows(folder)) {
            if (isOnline(row)) {
                all.push_back(std::move(row));
            }
        }
    }
    return all;
}

/// One text that is a single object, of which no proper prefix is JSON.
bool isCuttable(const WireRow& row) {
    const QJsonValue text = row.content["text"];
    return text.isObject() && !text.toObject().contains("parts");
}

std::vector<WireRow> cuttableRows() {
    std::vector<WireRow> all;
    for (WireRow& row : readRows("incoming")) {
        if (isCuttable(row)) {
            all.push_back(std::move(row));
        }
    }
    return all;
}

class WireTest : public testing::TestWithParam<WireRow> {};

TEST_P(WireTest, replaysAsWritten) {
    RowPlayer(GetParam()).play();
}

INSTANTIATE_TEST_SUITE_P(Rows, WireTest, testing::ValuesIn(onlineRows()));

class WireTruncationTest : public testing::TestWithParam<WireRow> {};

TEST_P(WireTruncationTest, everyPrefixIsDropped) {
    RowPlayer(GetParam()).playPrefixes();
}

INSTANTIATE_TEST_SUITE_P(Rows, WireTruncationTest, testing::ValuesIn(cuttableRows()));

}  // namespace
}  // namespace DOVA::test
