#include "jsonpad/json/JsonSchema.h"

#include <gmock/gmock.h>

#include "jsonpad/file/FileError.h"
#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace {

using DOVA::test::JsonRow;
using jsonpad::JsonSchema;

class Schema : public testing::TestWithParam<JsonRow> {};

/// "choices" has a bar behind each.
TEST_P(Schema, TellsTheChoices) {
    const DOVA::test::TemporaryFolder folder;
    const auto written = QJsonDocument(GetParam()["schema"].toObject()).toJson().toStdString();
    const JsonSchema schema = JsonSchema::load(folder.write("s.json", written));
    std::vector<std::u16string> path;
    for (const QJsonValue key : GetParam()["path"].toArray()) {
        path.push_back(DOVA::test::u16(key));
    }
    std::u16string choices;
    for (const std::u16string& choice : schema.choices(path, GetParam()["isElement"].toBool())) {
        choices += choice + u"|";
    }
    EXPECT_EQ(choices, DOVA::test::u16(GetParam()["choices"]));
}

INSTANTIATE_TEST_SUITE_P(All, Schema, testing::ValuesIn(DOVA::test::readRows(ROWS, "schema")),
                         DOVA::test::RowName());

}  // namespace
