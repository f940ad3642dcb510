#include "host/Array.h"

#include <gtest/gtest.h>

#include "host/FunctionEvaluation.h"

namespace {

struct Row {
    const char* name;
    kaArray* array;
    bool isTrue;
    const char* scalar;
    std::u16string text;
};

TEST(Array, AnswersEveryQuestionWhateverItsKind) {
    const Row rows[] = {
        {"null", nullptr, false, "nan", u""},
        {"logicalTrue", kaCreateLogicalScalar(true), true, "1.000000", u""},
        {"logicalFalse", kaCreateLogicalScalar(false), false, "0.000000", u""},
        {"doubleOne", kaCreateDoubleScalar(1), false, "1.000000", u""},
        {"textWithZero", kaCreateString({u"\u00fc\0b", 3}), false, "nan", {u"\u00fc\0b", 3}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const host::ArrayPointer array(row.array);
        EXPECT_EQ(kaIsLogicalScalarTrue(array.get()), row.isTrue);
        EXPECT_EQ(std::to_string(kaGetScalar(array.get())), row.scalar);
        EXPECT_EQ(kaGetString(array.get()), row.text);
    }
}

}  // namespace
