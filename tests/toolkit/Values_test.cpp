// The small values of the toolkit at their bounds.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "toolkit/Color.h"
#include "toolkit/DpiScale.h"
#include "toolkit/StringID.h"

namespace {

using namespace DOVA;

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Color, FractionsAreClampedAndRounded) {
    const std::pair<double, unsigned> rows[] = {
        {0, 0}, {0.5, 128}, {1, 255}, {7.5, 255}, {-0.1, 0}, {infinity, 255}, {std::nan(""), 0}};
    for (const auto& [fraction, channel] : rows) {
        const Color color = Color::fromFractions(fraction, 0, 1, fraction);
        EXPECT_EQ(color.rgba(), channel << 24 | 0x0000FF00u | channel) << fraction;
    }
}

TEST(Scale, StaysPositiveAndFinite) {
    setDpiScale(0.5);
    for (const double bad : {0.0, -1.5, infinity, std::nan("")}) {
        setDpiScale(bad);
        EXPECT_EQ(dpiScale(), 0.5) << bad;
    }
    setDpiScale(1.0);
}

TEST(StringIdentifier, IsEqualForEqualTexts) {
    const StringID web = StringID::setStringID("web");
    EXPECT_EQ(web, StringID::setStringID(std::string("we") + "b"));
    EXPECT_NE(web, StringID::setStringID("Web"));
    EXPECT_NE(StringID::setStringID(std::string("a\0b", 3)), StringID::setStringID("a"));
    EXPECT_EQ(StringID(), StringID::setStringID(""));
}

}  // namespace
