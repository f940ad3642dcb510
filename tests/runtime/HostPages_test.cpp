#include "HostFixture.h"
#include "support/RowNames.h"

namespace DOVA::runtime {

using DOVA::test::operator<<;

struct Announcements {
    const char* name;
    std::vector<std::string> texts;
    int newPages;
};

class AnnouncementsTest : public HostFixture, public testing::WithParamInterface<Announcements> {};

TEST_P(AnnouncementsTest, CallTheProgramOncePerNewPage) {
    start();
    int pages = 0;
    host->onPage([&] { ++pages; });
    runThrough(GetParam().texts);
    EXPECT_EQ(pages, GetParam().newPages);
}

const char* const readyA = R"({"clientReady":"a"})";
const char* const readyB = R"({"clientReady":"b"})";

const Announcements announcements[] = {
    {"AgainTheSame", {readyA, readyA}, 1},
    {"BackAndForth", {readyA, readyB, readyA}, 3},
    {"GoneAndBack", {readyA, R"({"clientDestroyed":"a"})", readyA}, 2},
    {"AnotherGone", {readyA, R"({"clientDestroyed":"b"})", readyA}, 1},
    {"ReadyBeforeDestroyed", {readyA, R"({"clientDestroyed":"a","clientReady":1})", readyA}, 1},
    {"Unreadable", {"", "{", R"([{"clientReady":"a"}])", R"({"clientReady":1})"}, 0},
};

INSTANTIATE_TEST_SUITE_P(Host, AnnouncementsTest, testing::ValuesIn(announcements),
                         [](const auto& row) { return row.param.name; });

class HostPagesTest : public HostFixture {};

TEST_F(HostPagesTest, CallsTheProgramInTheLoopAfterTheLibraryHasHeardOfThePage) {
    start();
    tdom::messaging::ConnectorMessageService gateway("test gateway");
    gateway.publish("/dova2/web", readyA);
    host->onPage([&] { note("page"); });
    runThrough({});
    EXPECT_THAT(events(),
                testing::ElementsAre("initialise", "online", R"(library heard {"clientReady":"a"})",
                                     "page", "terminate"));
}

}  // namespace DOVA::runtime
