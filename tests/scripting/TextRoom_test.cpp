#include "scripting/TextRoom.h"

#include <gtest/gtest.h>

#include "host/Console.h"

namespace DOVA::test {
namespace {

/// What the texts of an instance may take in all, and what the one that it holds does take.
constexpr std::size_t s_most = (std::size_t(1) << 31) - (std::size_t(1) << 12);
constexpr std::size_t s_living = sizeof "text" - 1 + 8;

struct RoomRow {
    const char* name;
    std::size_t bytes;
    const char* printed;
};

class TextRoomTest : public testing::TestWithParam<RoomRow> {};

TEST_P(TextRoomTest, isWhatQtCanHold) {
    std::string printed;
    const auto console = host::redirectConsole([&](std::string_view text) { printed += text; });
    web::Noted<QJsonArray> array{QJsonArray{"text"}};
    web::Noted<QJsonObject> object{QJsonObject{{"text", 1}}};
    for (int time = 0; time < 2; ++time) {  // what was refused is not counted
        printed.clear();
        EXPECT_EQ(web::makeRoom(array.value, GetParam().bytes), *GetParam().printed == '\0');
        EXPECT_EQ(printed, GetParam().printed);
        printed.clear();
        EXPECT_EQ(web::makeRoom(object.value, GetParam().bytes), *GetParam().printed == '\0');
        EXPECT_EQ(printed, GetParam().printed);
    }
    host::redirectConsole(console);
}

INSTANTIATE_TEST_SUITE_P(Rows, TextRoomTest,
                         testing::Values(RoomRow{"full", s_most - s_living, ""},
                                         RoomRow{"fuller", s_most - s_living + 1,
                                                 "too large document"}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace DOVA::test
