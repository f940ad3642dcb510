// The small value types that travel through the emitters.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "toolkit/Color.h"
#include "toolkit/DVFlags.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Icon.h"

namespace {

using namespace DOVA;

struct ChannelRow {
    const char* name;
    double fraction;
    unsigned channel;
};

class Channel : public testing::TestWithParam<ChannelRow> {};

TEST_P(Channel, IsClampedAndRounded) {
    const double fraction = GetParam().fraction;
    const Color color = Color::fromFractions(fraction, 0, 1, fraction);
    EXPECT_EQ(color.red(), GetParam().channel);
    EXPECT_EQ(color.green(), 0u);
    EXPECT_EQ(color.blue(), 255u);
    EXPECT_EQ(color.alpha(), GetParam().channel);
}

INSTANTIATE_TEST_SUITE_P(
    Color, Channel,
    testing::Values(ChannelRow{"none", 0, 0}, ChannelRow{"full", 1, 255},
                    ChannelRow{"half", 0.5, 128}, ChannelRow{"beyond", 7.5, 255},
                    ChannelRow{"below", -0.1, 0},
                    ChannelRow{"infinite", std::numeric_limits<double>::infinity(), 255},
                    ChannelRow{"notANumber", std::nan(""), 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Color, KeepsRedInTheHighestByte) {
    EXPECT_EQ(Color::fromRgb(0x12, 0x34, 0x56).rgba(), 0x123456FFu);
    EXPECT_EQ(Color(0x123456FF), Color::fromRgb(0x12, 0x34, 0x56));
    EXPECT_EQ(Color().alpha(), 0u);
}

TEST(Flags, AreASetOfBits) {
    const auto both = DVFlags<DialogFlag>(DialogFlag::Modal) | DialogFlag::StaysOnTop;
    EXPECT_EQ(both.value(), 3u);
    EXPECT_TRUE(both.has(DialogFlag::StaysOnTop));
    EXPECT_FALSE(both.has(DialogFlag::None));
    EXPECT_FALSE(DVFlags<DialogFlag>().has(DialogFlag::Modal));
}

TEST(Icon, AnswersNothingBeyondItsImages) {
    Icon icon;
    EXPECT_EQ(icon.getFile(0), "");
    icon.insertImage("a.svg");
    icon.insertImage("b.png");
    EXPECT_EQ(icon.imageCount(), 2u);
    EXPECT_EQ(icon.getFile(0), "a.svg");
    EXPECT_EQ(icon.getFile(1), "b.png");
    EXPECT_EQ(icon.getFile(2), "");
}

}  // namespace
