#include "jsonpad/Document.h"

#include <gmock/gmock.h>

#include <functional>
#include <map>

#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace {

using DOVA::test::text;
using jsonpad::Document;
using jsonpad::JsonFile;
using jsonpad::JsonKind;
using jsonpad::JsonOutline;

/// Members 0 a, 1 a.n, 2 a.b, 3 a.b.s, 4 a.b.s, 5 a.l, 6 e, 7 m, 8 z.
const std::string s_nested =
    "{\"a\" : { \"n\":12345678901234567890,\r\n"
    "  \"b\":{\"s\":\"\\u0041\" , \"s\": \"2\"},\n"
    "\t\"l\":[ 1,\n 2 ] },\n"
    " \"e\":{ }, \"m\":[[ ],1], \"z\" : true }\n";

/// Makes an edit of a row, its name and arguments.
void make(const QJsonValue& edit, Document& document) {
    const QJsonArray numbers = edit[1].toArray();
    Document::Place place{static_cast<std::size_t>(numbers[0].toInt())};
    if (numbers.size() > 1) {
        place.element = numbers[1].toInt();
    }
    const std::map<QString, std::function<void()>> edits{
        {"enter", [&] { document.enter(place, DOVA::test::u16(edit[2])); }},
        {"turn", [&] { document.turn(place, edit[2].toBool()); }},
        {"addElement", [&] { document.addElement(edit[1].toInt()); }},
        {"removeElement", [&] { document.removeElement(edit[1].toInt(), edit[2].toInt()); }},
        {"revert", [&] { document.revert(); }}};
    edits.at(edit[0].toString())();
}

class NestedDocument : public testing::TestWithParam<DOVA::test::JsonRow> {
protected:
    NestedDocument() : document(JsonFile::load(m_folder.write("a.json", s_nested))) {}

    void edit() {
        for (const QJsonValue each : GetParam()["edits"].toArray()) {
            make(each, document);
        }
    }
    std::string onDisk() const { return m_folder.read("a.json"); }
    std::vector<std::u16string> texts() const {
        std::vector<std::u16string> result;
        for (std::size_t member = 0; member < document.members().size(); ++member) {
            result.push_back(document.text({member}));
            for (std::size_t at = 0; document.members()[member].kind == JsonKind::List &&
                                     at < document.elements(member).size();
                 ++at) {
                result.push_back(document.elements(member)[at].text);
            }
        }
        return result;
    }

private:
    DOVA::test::TemporaryFolder m_folder;

protected:
    Document document;
};

TEST_P(NestedDocument, SavesWhatWasEditedAndNoOtherByte) {
    std::string expected = s_nested;
    for (const QJsonValue change : GetParam()["changes"].toArray()) {
        const std::string from = text(change[0]);
        expected.replace(expected.find(from), from.size(), text(change[1]));
    }
    edit();
    EXPECT_EQ(document.names(document.modified()), GetParam().text("modified"));
    document.save(JsonFile::IfChanged::Refuse);
    EXPECT_EQ(onDisk(), expected);
    EXPECT_EQ(document.isModified(), GetParam()["isSavedInPart"].toBool());
    // A second save, after everything has moved, finds every value again.
    const auto before = texts();
    document.turn({8}, document.text({8}) == u"false");
    document.turn({8}, document.text({8}) == u"false");
    document.enter({4}, u"last");
    document.save(JsonFile::IfChanged::Refuse);
    document.enter({4}, before[4]);
    document.save(JsonFile::IfChanged::Refuse);
    EXPECT_EQ(onDisk(), expected);
    EXPECT_EQ(texts(), before);
}

TEST_P(NestedDocument, RevertsToTheFile) {
    const auto before = texts();
    edit();
    document.revert();
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(texts(), before);
}

INSTANTIATE_TEST_SUITE_P(All, NestedDocument,
                         testing::ValuesIn(DOVA::test::readRows(ROWS, "document")),
                         DOVA::test::RowName());

/// The kinds of the members, a letter each.
std::string kinds(const std::string& text) {
    const JsonOutline outline(text);
    std::string result;
    for (const auto& member : outline.members()) {
        result += "SNB0L{["[static_cast<int>(member.kind)];
    }
    return result;
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

TEST(Outline, LeavesClosedWhatWouldBeTooMuch) {
    EXPECT_EQ(kinds(s_nested), "{N{SSL[[B");
    const std::size_t deep = JsonOutline::depthLimit + 2;
    EXPECT_EQ(kinds(repeated("{\"a\":", deep) + "1" + repeated("}", deep)),
              repeated("{", JsonOutline::depthLimit - 1) + "[");
    const auto list = [](std::size_t count) {
        return "{\"a\":[0" + repeated(",0", count - 1) + "]}";
    };
    EXPECT_EQ(kinds(list(JsonOutline::listLimit)), "L");
    EXPECT_EQ(kinds(list(JsonOutline::listLimit + 1)), "[");
    const std::string lists = list(JsonOutline::listLimit);
    const std::size_t fitting = JsonOutline::memberLimit / JsonOutline::listLimit;
    EXPECT_EQ(
        kinds("{" + repeated(lists.substr(1, lists.size() - 2) + ",", fitting + 1) + "\"n\":1}"),
        repeated("L", fitting) + "[N");
    const std::string big = "{\"x\":0" + repeated(",\"x\":0", JsonOutline::memberLimit - 1) + "}";
    EXPECT_EQ(kinds("{\"a\":" + big + ",\"b\":{\"c\":1},\"d\":2}"),
              "{" + repeated("N", JsonOutline::memberLimit) + "[N");
}

}  // namespace
