#include "core/TypeConversions.h"

#include <gtest/gtest.h>

namespace DOVA {
namespace {

struct AlignmentRow {
    int number;
    const char* written;
    const char* read;  // null: no text means it
};

class AlignmentTextTest : public testing::TestWithParam<AlignmentRow> {};

TEST_P(AlignmentTextTest, eachWay) {
    const AlignmentRow& row = GetParam();
    EXPECT_EQ(DV2Web(static_cast<Alignment>(row.number)), row.written);
    if (row.read) {
        EXPECT_EQ(static_cast<int>(Web2DV(row.read)), row.number);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AlignmentTextTest,
    testing::Values(AlignmentRow{1, "AlignTop", nullptr},
                    AlignmentRow{2, "AlignLeftAndTop", "AlignLeftAndTop"},
                    AlignmentRow{3, "AlignHCenterAndTop", "AlignHCenterandTop"},
                    AlignmentRow{4, "AlignRightAndTop", "AlignRightAndTop"},
                    AlignmentRow{5, "AlignLeftAndVCenter", "AlignLeftAndVCenter"},
                    AlignmentRow{6, "AlignCenter", "AlignCenter"},
                    AlignmentRow{7, "AlignRightAndVCenter", "AlignRightAndVCenter"},
                    AlignmentRow{8, "AlignBottom", nullptr},
                    AlignmentRow{9, "AlignLeftAndBottom", "AlignLeftAndBottom"},
                    AlignmentRow{10, "AlignHCenterAndBottom", "AlignHCenterAndBottom"},
                    AlignmentRow{11, "AlignRightAndBottom", "AlignRightAndBottom"},
                    AlignmentRow{0, "", nullptr}, AlignmentRow{12, "", nullptr},
                    AlignmentRow{-1, "", nullptr}));

TEST(AlignmentTextsTest, otherTextsMeanNone) {
    for (const char* text : {"", "AlignTop", "AlignBottom", "AlignHCenterAndTop", "aligncenter",
                             "AlignCenter ", "AlignCente"}) {
        EXPECT_EQ(Web2DV(text), Alignment::None) << text;
    }
}

TEST(InsertPolicyTextTest, unknownOnesMeanTheBottom) {
    EXPECT_EQ(DV2Web(ComboInsertPolicy::NoInsert), "NoInsert");
    EXPECT_EQ(DV2Web(ComboInsertPolicy::InsertAtTop), "InsertAtTop");
    EXPECT_EQ(DV2Web(static_cast<ComboInsertPolicy>(-7)), "InsertAtBottom");
    EXPECT_EQ(Qt2DV("NoInsert"), ComboInsertPolicy::NoInsert);
    EXPECT_EQ(Qt2DV("InsertAtTop"), ComboInsertPolicy::InsertAtTop);
    EXPECT_EQ(Qt2DV("insertattop"), ComboInsertPolicy::InsertAtBottom);
}

}  // namespace
}  // namespace DOVA
