#include "jsonpad/JsonList.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/RowNames.h"

namespace {

using DOVA::test::operator<<;
using jsonpad::JsonList;

void append(JsonList& list, const std::u16string& text) {
    list.add();
    list.set(list.elements().size() - 1, text);
}

struct Row {
    const char* name;
    const char* before;
    std::function<void(JsonList&)> edit;
    const char* after;
    bool isValid = true;
};

const Row rows[] = {
    {"untouched", "[ 1.0,\t\"\\u0041\" ,null\n]", [](JsonList&) {}, "[ 1.0,\t\"\\u0041\" ,null\n]"},
    {"first", "[ 1,\t2 ,3\n]", [](JsonList& l) { l.remove(0); }, "[ 2 ,3\n]"},
    {"middle", "[ 1,\t2 ,3\n]", [](JsonList& l) { l.remove(1); }, "[ 1 ,3\n]"},
    {"last", "[ 1,\t2 ,3\n]", [](JsonList& l) { l.remove(2); }, "[ 1,\t2\n]"},
    {"all", "[ 1\n]", [](JsonList& l) { l.remove(0); }, "[]"},
    {"addToNone", "[ ]", [](JsonList& l) { append(l, u"a\"b"); }, "[ \"a\\\"b\"]"},
    {"addTwoToNone", "[]", [](JsonList& l) { append(l, u"a"), append(l, u"b"); }, "[\"a\", \"b\"]"},
    {"addToOne", "[1]", [](JsonList& l) { append(l, u"2"); }, "[1, 2]"},
    {"addToOneUpright", "[\r\n\t1\r\n]", [](JsonList& l) { append(l, u"2"); },
     "[\r\n\t1,\r\n\t2\r\n]"},
    {"addAsTheLastStand", "[1,  2,3]", [](JsonList& l) { append(l, u"4"); }, "[1,  2,3,4]"},
    {"addAfterNull", "[1, null]", [](JsonList& l) { append(l, u"4"); }, "[1, null, \"4\"]"},
    {"addUntyped", "[true]", [](JsonList& l) { l.add(); }, "[true, false]"},
    {"addUntypedNumber", "[7]", [](JsonList& l) { l.add(); }, "[7, 0]"},
    {"largeInteger", "[90071992547409931234,1]", [](JsonList& l) { l.set(1, u"-0.0e1"); },
     "[90071992547409931234,-0.0e1]"},
    {"thereAndBack", "[\"\\u0041\",1]",
     [](JsonList& l) { l.set(0, u"B"), l.set(1, u"2"), l.set(0, u"A"), l.set(1, u"1"); },
     "[\"\\u0041\",1]"},
    {"notANumberStaysAsSaved", "[1,2]", [](JsonList& l) { l.set(0, u"3"), l.set(0, u"3x"); },
     "[1,2]", false},
    {"notANumberThatIsNew", "[1,2]", [](JsonList& l) { append(l, u"1,2"); }, "[1,2]", false},
    {"notABoolean", "[true]", [](JsonList& l) { l.set(0, u"maybe"); }, "[true]", false},
};

class List : public testing::TestWithParam<Row> {};

TEST_P(List, KeepsWhatIsLeftAlone) {
    JsonList list(GetParam().before);
    GetParam().edit(list);
    EXPECT_EQ(list.text(), GetParam().after);
    EXPECT_EQ(list.isValid(), GetParam().isValid);
    list.markSaved();
    EXPECT_EQ(list.text(), GetParam().after);
    EXPECT_EQ(list.isValid(), GetParam().isValid) << "what was typed stays";
}

INSTANTIATE_TEST_SUITE_P(All, List, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(ListSaved, GoesOnFromWhatWasWritten) {
    JsonList list("[1, 2,  3]");
    list.set(1, u"x");
    list.remove(0);
    append(list, u"new");
    append(list, u"4");
    EXPECT_EQ(list.text(), "[2,  3,  4]");
    list.markSaved();
    EXPECT_EQ(list.elements()[2].text, u"new");
    list.set(2, u"9");
    list.remove(0);
    EXPECT_EQ(list.text(), "[3,  9,  4]");
}

}  // namespace
