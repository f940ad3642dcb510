#include "jsonpad/Document.h"

#include <gmock/gmock.h>

#include <functional>

#include "support/RowNames.h"
#include "support/TemporaryFolder.h"

namespace {

using DOVA::test::operator<<;
using jsonpad::Document;
using jsonpad::JsonFile;
using jsonpad::JsonKind;
using jsonpad::JsonOutline;

/// Members 0 a, 1 a.n, 2 a.b, 3 a.b.s, 4 a.b.s, 5 a.l, 6 e, 7 m, 8 z.
const std::string nested =
    "{\"a\" : { \"n\":12345678901234567890,\r\n"
    "  \"b\":{\"s\":\"\\u0041\" , \"s\": \"2\"},\n"
    "\t\"l\":[ 1,\n 2 ] },\n"
    " \"e\":{ }, \"m\":[[ ],1], \"z\" : true }\n";

struct Row {
    const char* name;
    std::function<void(Document&)> edit;
    std::vector<std::pair<const char*, const char*>> changes;  ///< in `nested`, once each
    const char* modified;
    bool isSavedWhole = true;
};

const Row rows[] = {
    {"number",
     [](Document& d) { d.enter({1}, u"-1"); },
     {{"12345678901234567890", "-1"}},
     R"("a"."n")"},
    {"secondOfEqualKeys",
     [](Document& d) { d.enter({4}, u"x"); },
     {{"\"2\"", "\"x\""}},
     R"("a"."b"."s")"},
    {"everyDepth",
     [](Document& d) {
         d.turn({8}, false);
         d.enter({3}, u"much longer");
         d.enter({1}, u"0");
         d.enter({5, 1}, u"33");
     },
     {{"\\u0041", "much longer"},
      {"12345678901234567890", "0"},
      {" 2 ", " 33 "},
      {"true", "false"}},
     R"("a"."n", "a"."b"."s", "a"."l" and 1 more)"},
    {"thereAndBack",
     [](Document& d) {
         d.enter({3}, u"B"), d.enter({3}, u"A");
         d.enter({1}, u"x"), d.enter({1}, u"12345678901234567890");
         d.addElement(5), d.removeElement(5, 2);
     },
     {},
     ""},
    {"notANumber",
     [](Document& d) { d.enter({1}, u"7"), d.enter({1}, u"7x"); },
     {},
     R"("a"."n")",
     false},
    {"notANumberInAList",
     [](Document& d) {
         d.enter({5, 0}, u"");
         d.addElement(5);
         d.enter({4}, u"x");
     },
     {{"2 ]", "2,\n 0 ]"}, {"\"2\"", "\"x\""}},
     R"("a"."b"."s", "a"."l")",
     false},
    {"editsOfWhatIsGone",
     [](Document& d) {
         d.removeElement(5, 0);
         d.enter({5, 0}, u"7"), d.turn({5, 0}, true), d.removeElement(5, 0), d.enter({5, 9}, u"7");
         d.revert();
         d.enter({5, 1}, u"7"), d.removeElement(5, 1);
         d.enter({5, 3}, u"8");
     },
     {{" 2 ", " 8 "}},
     R"("a"."l")"},
    {"emptiedAndFilled",
     [](Document& d) {
         d.removeElement(5, 0);
         d.removeElement(5, 1);
     },
     {{"[ 1,\n 2 ]", "[]"}},
     R"("a"."l")"},
};

class NestedDocument : public testing::TestWithParam<Row> {
protected:
    NestedDocument() : document(JsonFile::load(m_folder.write("a.json", nested))) {}

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
    std::string expected = nested;
    for (const auto& [from, to] : GetParam().changes) {
        expected.replace(expected.find(from), std::string(from).size(), to);
    }
    GetParam().edit(document);
    EXPECT_EQ(document.names(document.modified()), GetParam().modified);
    document.save(JsonFile::IfChanged::Refuse);
    EXPECT_EQ(onDisk(), expected);
    EXPECT_EQ(!document.isModified(), GetParam().isSavedWhole);
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
    GetParam().edit(document);
    document.revert();
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(texts(), before);
}

INSTANTIATE_TEST_SUITE_P(All, NestedDocument, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

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
    EXPECT_EQ(kinds(nested), "{N{SSL[[B");
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
