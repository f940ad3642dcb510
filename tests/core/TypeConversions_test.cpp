#include "core/TypeConversions.h"

#include <gtest/gtest.h>

namespace DOVA {
namespace {

TEST(TypeConversionsTest, alignments) {
    int number = 0;
    for (const std::string text :
         {"", "AlignTop", "AlignLeftAndTop", "AlignHCenterAndTop", "AlignRightAndTop",
          "AlignLeftAndVCenter", "AlignCenter", "AlignRightAndVCenter", "AlignBottom",
          "AlignLeftAndBottom", "AlignHCenterAndBottom", "AlignRightAndBottom"}) {
        EXPECT_EQ(DV2Web(static_cast<Alignment>(number)), text);
        // Clients write the third with a small letter, and never these two.
        const bool isRead = text != "AlignTop" && number != 3 && text != "AlignBottom";
        EXPECT_EQ(static_cast<int>(Web2DV(text)), isRead ? number : 0) << text;
        ++number;
    }
    EXPECT_EQ(DV2Web(static_cast<Alignment>(-1)) + DV2Web(static_cast<Alignment>(number)), "");
    EXPECT_EQ(static_cast<int>(Web2DV("AlignHCenterandTop")), 3);
    for (const char* text : {"aligncenter", "AlignCenter ", "AlignCente"}) {
        EXPECT_EQ(Web2DV(text), Alignment::None) << text;
    }
}

TEST(TypeConversionsTest, unknownInsertPoliciesMeanTheBottom) {
    EXPECT_EQ(DV2Web(ComboInsertPolicy::NoInsert), "NoInsert");
    EXPECT_EQ(DV2Web(ComboInsertPolicy::InsertAtTop), "InsertAtTop");
    EXPECT_EQ(DV2Web(static_cast<ComboInsertPolicy>(-7)), "InsertAtBottom");
    EXPECT_EQ(Qt2DV("NoInsert"), ComboInsertPolicy::NoInsert);
    EXPECT_EQ(Qt2DV("InsertAtTop"), ComboInsertPolicy::InsertAtTop);
    EXPECT_EQ(Qt2DV("insertattop"), ComboInsertPolicy::InsertAtBottom);
}

}  // namespace
}  // namespace DOVA
