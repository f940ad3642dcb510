// The small values of the toolkit at their bounds.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "toolkit/Color.h"
#include "toolkit/DpiScale.h"

namespace {

using namespace DOVA;

constexpr double s_infinity = std::numeric_limits<double>::infinity();

TEST(Color, FractionsAreClampedAndRounded) {
    const std::pair<double, unsigned> rows[] = {
        {0, 0}, {0.5, 128}, {1, 255}, {7.5, 255}, {-0.1, 0}, {s_infinity, 255}, {std::nan(""), 0}};
    for (const auto& [fraction, channel] : rows) {
        const Color color = Color::fromFractions(fraction, 0, 1, fraction);
        EXPECT_EQ(color.rgba(), channel << 24 | 0x0000FF00u | channel) << fraction;
    }
}

TEST(Scale, StaysPositiveAndFinite) {
    for (const double bad : {0.0, -1.5, s_infinity, std::nan("")}) {
        setDpiScale(bad);
        EXPECT_EQ(dpiScale(), 1.0) << bad;
    }
}

}  // namespace
