#include "jsonpad/json/JsonList.h"

#include <gtest/gtest.h>

#include "support/JsonRows.h"

namespace {

using DOVA::test::u16;
using jsonpad::JsonList;

void append(JsonList& list, const std::u16string& text) {
    list.add();
    list.set(list.elements().size() - 1, text);
}

/// Makes an edit of a row, its name and arguments.
void make(const QJsonValue& edit, JsonList& list) {
    const QString name = edit[0].toString();
    if (name == "set") {
        list.set(edit[1].toInt(), u16(edit[2]));
    } else if (name == "remove") {
        list.remove(edit[1].toInt());
    } else {
        name == "append" ? append(list, u16(edit[1])) : list.add();
    }
}

class List : public testing::TestWithParam<DOVA::test::JsonRow> {};

TEST_P(List, KeepsWhatIsLeftAlone) {
    JsonList list(GetParam().text("before"));
    for (const QJsonValue edit : GetParam()["edits"].toArray()) {
        make(edit, list);
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(list.text(), GetParam().text("after"));
        EXPECT_EQ(list.isValid(), !GetParam()["isInvalid"].toBool()) << "what was typed stays";
        list.markSaved();
    }
}

INSTANTIATE_TEST_SUITE_P(All, List, testing::ValuesIn(DOVA::test::readRows(ROWS, "list")),
                         DOVA::test::RowName());

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
