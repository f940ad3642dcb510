#include "jsonpad/JsonSchema.h"

#include <gmock/gmock.h>

#include "jsonpad/FileError.h"
#include "support/RowNames.h"
#include "support/TemporaryFolder.h"

namespace {

using DOVA::test::operator<<;
using jsonpad::JsonSchema;

struct Row {
    const char* name;
    const char* schema;
    std::vector<std::u16string> path;
    const char16_t* expected;  ///< the choices, each with a bar behind it
    bool isElement = false;
};

const Row rows[] = {
    {"textsInOrder",
     R"({"properties":{"a":{"enum":["z",1,"b",null,"\u00e9"]}}})",
     {u"a"},
     u"z|b|\u00e9|"},
    {"noEnum", R"({"properties":{"a":{"type":"string"}}})", {u"a"}, u""},
    {"otherKey", R"({"properties":{"a":{"enum":["x"]}}})", {u"b"}, u""},
    {"deeper", R"({"properties":{"a":{"properties":{"":{"enum":["x"]}}}}})", {u"a", u""}, u"x|"},
    {"elements", R"({"properties":{"a":{"items":{"enum":["x"]}}}})", {u"a"}, u"x|", true},
    {"elementsAreNotTheList", R"({"properties":{"a":{"items":{"enum":["x"]}}}})", {u"a"}, u""},
    {"definitions",
     R"({"properties":{"a":{"$ref":"#/definitions/d"}},"definitions":{"d":{"enum":["x"]}}})",
     {u"a"},
     u"x|"},
    {"besideTheReference",
     R"({"$defs":{"d":{"properties":{"b":{"enum":["y"]}}}},
         "properties":{"a":{"$ref":"#/$defs/d","properties":{"b":{"enum":["x"]}}}}})",
     {u"a", u"b"},
     u"x|y|"},
    {"chain",
     R"({"$ref":"#/x","x":{"$ref":"#/y"},"y":{"properties":{"a":{"enum":["x"]}}}})",
     {u"a"},
     u"x|"},
    {"pointerEscapes",
     R"({"a~1/%":{"enum":["x"]},"properties":{"a":{"$ref":"#/a~01~1%25"}}})",
     {u"a"},
     u"x|"},
    {"pointerIntoArray",
     R"({"l":[0,{"enum":["x"]}],"properties":{"a":{"$ref":"#/l/1"}}})",
     {u"a"},
     u"x|"},
    {"recursive",
     R"({"properties":{"a":{"$ref":"#"},"b":{"enum":["x"]}}})",
     {u"a", u"a", u"a", u"b"},
     u"x|"},
    {"circle", R"({"$ref":"#","properties":{"a":{"$ref":"#/properties/a"}}})", {u"a", u"a"}, u""},
    {"otherFile",
     R"({"properties":{"a":{"$ref":"other.json#/x"}},"x":{"enum":["x"]}})",
     {u"a"},
     u""},
    {"nowhere", R"({"properties":{"a":{"$ref":"#/x/y"}}})", {u"a"}, u""},
    {"notASchema", R"({"properties":{"a":[{"enum":["x"]}]},"enum":3})", {u"a"}, u""},
};

class Schema : public testing::TestWithParam<Row> {};

TEST_P(Schema, TellsTheChoices) {
    const DOVA::test::TemporaryFolder folder;
    const JsonSchema schema = JsonSchema::load(folder.write("s.json", GetParam().schema));
    std::u16string choices;
    for (const std::u16string& choice : schema.choices(GetParam().path, GetParam().isElement)) {
        choices += choice + u"|";
    }
    EXPECT_EQ(choices, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, Schema, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
