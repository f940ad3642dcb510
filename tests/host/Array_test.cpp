#include "host/Array.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

using host::ArrayPointer;

constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();

/// An instance that knows how many of its kind live.
struct Instance : kaObject {
    explicit Instance(int& counter) : living(counter) { ++living; }
    ~Instance() override { --living; }
    const std::string& className() const noexcept override {
        static const std::string s_name = "test.Instance";
        return s_name;
    }
    std::shared_ptr<kaObject> copy() const override { return std::make_shared<Instance>(living); }

    int& living;
};

/// Everything that can be asked of an array, as one text.
std::string describe(const kaArray* array) {
    static const char* const s_classes[] = {"logical", "char", "double", "int32",
                                            "uint64",  "cell", "struct", "object"};
    std::string text = s_classes[static_cast<int>(kaGetClassID(array))];
    text += " " + std::to_string(kaGetNumberOfRows(array)) + "x" +
            std::to_string(kaGetNumberOfColumns(array)) + " ";
    text += matrix::isScalar(array) ? "s" : "-";
    text += matrix::isEmpty(array) ? "e" : "-";
    text += matrix::isRowVector(array) ? "r" : "-";
    text += kaIsNumeric(array) ? "n" : "-";
    text += kaIsChar(array) ? "c" : "-";
    text += kaIsLogicalScalar(array) ? "l" : "-";
    text += kaIsLogicalScalarTrue(array) ? "t" : "-";
    for (std::size_t index = 0; index <= kaGetNumberOfElements(array); ++index) {
        text += " " + std::to_string(kaGetElement(array, index));
        if (const kaArray* cell = kaGetCell(array, index)) {
            text += "{" + describe(cell) + "}";
        }
    }
    for (const std::u16string& name : kaGetFieldNames(array)) {
        text += " ." + std::string(name.begin(), name.end()) + "=" +
                std::to_string(kaGetScalar(kaGetField(array, name)));
    }
    return text + (kaGetObject(array) != nullptr ? " " + kaGetObject(array)->className() : "");
}

struct Row {
    const char* name;
    kaArray* array;
    const char* description;
    std::uint64_t exact;
    std::u16string text;
};

void expectAnswers(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ArrayPointer original(row.array);
        const ArrayPointer duplicate(kaDuplicateArray(original.get()));
        EXPECT_EQ(describe(original.get()), row.description);
        original.reset();
        EXPECT_EQ(describe(duplicate.get()), row.description);
        EXPECT_EQ(kaGetUInt64Scalar(duplicate.get()), row.exact);
        EXPECT_EQ(kaGetString(duplicate.get()), row.text);
    }
}

TEST(Array, AScalarOrTextAnswersEveryQuestionAndSoDoesItsDuplicate) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    expectAnswers({
        {"null", nullptr, "double 0x0 -e-n--- nan", 0, u""},
        {"true", kaCreateLogicalScalar(true), "logical 1x1 s-r--lt 1.000000 nan", 1, u""},
        {"false", kaCreateLogicalScalar(false), "logical 1x1 s-r--l- 0.000000 nan", 0, u""},
        {"double", kaCreateDoubleScalar(1), "double 1x1 s-rn--- 1.000000 nan", 1, u""},
        {"int32", kaCreateInt32Scalar(-2147483647 - 1), "int32 1x1 s-rn--- -2147483648.000000 nan",
         0, u""},
        {"uint64", kaCreateUInt64Scalar(largest - 1),
         "uint64 1x1 s-rn--- 18446744073709551616.000000 nan", largest - 1, u""},
        {"half", kaCreateDoubleScalar(2.5), "double 1x1 s-rn--- 2.500000 nan", 3, u""},
        {"minusHalf", kaCreateDoubleScalar(-0.5), "double 1x1 s-rn--- -0.500000 nan", 0, u""},
        {"notANumber", kaCreateDoubleScalar(nan), "double 1x1 s-rn--- nan nan", 0, u""},
        {"infinite", kaCreateDoubleScalar(inf), "double 1x1 s-rn--- inf nan", largest, u""},
        {"beyondTheLimit", kaCreateDoubleScalar(18446744073709551616.0),
         "double 1x1 s-rn--- 18446744073709551616.000000 nan", largest, u""},
        {"belowTheLimit", kaCreateDoubleScalar(18446744073709549568.0),
         "double 1x1 s-rn--- 18446744073709549568.000000 nan", 18446744073709549568U, u""},
        {"noText", kaCreateString({}), "char 0x0 -e--c-- nan", 0, u""},
        {"text",
         kaCreateString({u"\u00fc\0\xd800", 3}),
         "char 1x3 --r-c-- nan nan nan nan",
         0,
         {u"\u00fc\0\xd800", 3}},
        {"character", kaCreateCharMatrix(1, 1, u"5"), "char 1x1 s-r-c-- nan nan", 0, u"5"},
        {"emptyRow", kaCreateCharMatrix(1, 0, u""), "char 1x0 -er-c-- nan", 0, u""},
    });
}

TEST(Array, AMatrixOrContainerAnswersEveryQuestionAndSoDoesItsDuplicate) {
    int living = 0;
    const bool logicals[] = {true, false};
    const double doubles[] = {1, 2, 3, 4, 5, 6};
    const std::int32_t ints[] = {-7, 8};
    const std::uint64_t wholes[] = {largest, 1};
    kaArray* const cells[] = {kaCreateDoubleScalar(7), nullptr, kaCreateCellMatrix(1, 1, nullptr),
                              kaCreateObject(std::make_shared<Instance>(living))};
    const std::u16string_view names[] = {u"b", u"a", u"", u"b"};
    kaArray* const values[] = {kaCreateDoubleScalar(1), kaCreateDoubleScalar(2), nullptr,
                               kaCreateDoubleScalar(4)};
    expectAnswers({
        {"logicals", kaCreateLogicalMatrix(2, 1, logicals),
         "logical 2x1 ------- 1.000000 0.000000 nan", 1, u""},
        {"doubles", kaCreateDoubleMatrix(2, 3, doubles),
         "double 2x3 ---n--- 1.000000 2.000000 3.000000 4.000000 5.000000 6.000000 nan", 1, u""},
        {"noElementsGiven", kaCreateDoubleMatrix(1, 2, nullptr),
         "double 1x2 --rn--- 0.000000 0.000000 nan", 0, u""},
        {"rowsWithoutColumns", kaCreateDoubleMatrix(largest, 0, nullptr),
         "double 18446744073709551615x0 -e-n--- nan", 0, u""},
        {"ints", kaCreateInt32Matrix(1, 2, ints), "int32 1x2 --rn--- -7.000000 8.000000 nan", 0,
         u""},
        {"wholes", kaCreateUInt64Matrix(2, 1, wholes),
         "uint64 2x1 ---n--- 18446744073709551616.000000 1.000000 nan", largest, u""},
        {"cells", kaCreateCellMatrix(2, 2, cells),
         "cell 2x2 ------- nan{double 1x1 s-rn--- 7.000000 nan} nan nan{cell 1x1 s-r---- nan nan} "
         "nan{object 1x1 s-r---- nan nan test.Instance} nan",
         0, u""},
        {"struct", kaCreateStructScalar(4, names, values),
         "struct 1x1 s-r---- nan nan .b=4.000000 .a=2.000000 .=nan", 0, u""},
        {"noFields", kaCreateStructScalar(0, nullptr, nullptr), "struct 1x1 s-r---- nan nan", 0,
         u""},
        {"object", kaCreateObject(std::make_shared<Instance>(living)),
         "object 1x1 s-r---- nan nan test.Instance", 0, u""},
        {"noObject", kaCreateObject(nullptr), "double 0x0 -e-n--- nan", 0, u""},
    });
    EXPECT_EQ(living, 0);
}

TEST(Array, AnInstanceIsSharedByItsArrayAndCopiedByADuplicateAtAnyDepth) {
    int living = 0;
    const std::u16string_view name = u"field";
    kaArray* const object = kaCreateObject(std::make_shared<Instance>(living));
    const std::shared_ptr<kaObject> instance = kaShareObject(object);
    kaArray* const cell = kaCreateCellMatrix(1, 1, &object);
    ArrayPointer original(kaCreateStructScalar(1, &name, &cell));
    const ArrayPointer duplicate(kaDuplicateArray(original.get()));
    EXPECT_EQ(kaGetObject(kaGetCell(kaGetField(original.get(), name), 0)), instance.get());
    EXPECT_NE(kaGetObject(kaGetCell(kaGetField(duplicate.get(), name), 0)), instance.get());
    EXPECT_EQ(living, 2);
    original.reset();
    EXPECT_EQ(instance.use_count(), 1);
    EXPECT_EQ(kaShareObject(duplicate.get()), nullptr);
}

TEST(Array, ElementsStayTheCallersWhereThereIsNoRoomForThem) {
    const std::size_t half = std::size_t(1) << 32;
    const ArrayPointer element(kaCreateDoubleScalar(1));
    kaArray* const elements[] = {element.get()};
    EXPECT_THROW(kaCreateCellMatrix(half, half, elements), std::length_error);
    EXPECT_THROW(kaCreateDoubleMatrix(half, half, nullptr), std::length_error);
    EXPECT_THROW(kaCreateCharMatrix(largest, 1, nullptr), std::length_error);
    EXPECT_EQ(kaGetScalar(element.get()), 1);
}

}  // namespace
