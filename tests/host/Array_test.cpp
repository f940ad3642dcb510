#include "host/Array.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Row {
    const char* name;
    std::function<kaArray*()> make;
    bool isTrue;
    double scalar;
    std::u16string text;
};

const Row rows[] = {
    {"null", [] { return nullptr; }, false, nan, u""},
    {"logicalTrue", [] { return kaCreateLogicalScalar(true); }, true, 1, u""},
    {"logicalFalse", [] { return kaCreateLogicalScalar(false); }, false, 0, u""},
    {"doubleOne", [] { return kaCreateDoubleScalar(1); }, false, 1, u""},
    {"doubleNegative", [] { return kaCreateDoubleScalar(-2.5); }, false, -2.5, u""},
    {"text", [] { return kaCreateString(u"tr\u00fce"); }, false, nan, u"tr\u00fce"},
    {"textWithZero",
     [] {
         return kaCreateString({u"a\0b", 3});
     },
     false,
     nan,
     {u"a\0b", 3}},
};

class Array : public testing::TestWithParam<Row> {};

TEST_P(Array, AnswersEveryQuestionWhateverItsKind) {
    kaArray* array = GetParam().make();
    EXPECT_EQ(kaIsLogicalScalarTrue(array), GetParam().isTrue);
    const double scalar = kaGetScalar(array);
    EXPECT_TRUE(std::isnan(GetParam().scalar) ? std::isnan(scalar) : scalar == GetParam().scalar);
    EXPECT_EQ(kaGetString(array), GetParam().text);
    kaDestroyArray(array);
}

INSTANTIATE_TEST_SUITE_P(All, Array, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
