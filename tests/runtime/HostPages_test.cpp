#include "HostFixture.h"

namespace DOVA::runtime {

struct Announcements {
    const char* name;
    std::vector<std::string> texts;
    int newPages;
};

void PrintTo(const Announcements& row, std::ostream* out) {
    *out << row.name;
}

class AnnouncementsTest : public HostFixture, public testing::WithParamInterface<Announcements> {};

TEST_P(AnnouncementsTest, CallTheProgramOncePerNewPage) {
    start();
    int pages = 0;
    host->onPage([&] { ++pages; });
    runThrough(GetParam().texts);
    EXPECT_EQ(pages, GetParam().newPages);
}

const Announcements announcements[] = {
    {"None", {}, 0},
    {"One", {R"({"clientReady":"a"})"}, 1},
    {"AgainTheSame", {R"({"clientReady":"a"})", R"({"clientReady":"a"})"}, 1},
    {"Another", {R"({"clientReady":"a"})", R"({"clientReady":"b"})"}, 2},
    {"BackAndForth",
     {R"({"clientReady":"a"})", R"({"clientReady":"b"})", R"({"clientReady":"a"})"},
     3},
    {"GoneAndBack",
     {R"({"clientReady":"a"})", R"({"clientDestroyed":"a"})", R"({"clientReady":"a"})"},
     2},
    {"AnotherGone",
     {R"({"clientReady":"a"})", R"({"clientDestroyed":"b"})", R"({"clientReady":"a"})"},
     1},
    {"ReadyBeforeDestroyed",
     {R"({"clientReady":"a"})", R"({"clientDestroyed":"a","clientReady":"a"})",
      R"({"clientReady":"a"})"},
     1},
    {"Unreadable",
     {"", "{", "[]", "null", R"("clientReady")", R"([{"clientReady":"a"}])", R"({"clientReady":1})",
      R"({"clientReady":{"id":"a"}})", R"({"ping":-1})"},
     0},
};

INSTANTIATE_TEST_SUITE_P(Host, AnnouncementsTest, testing::ValuesIn(announcements),
                         [](const auto& row) { return std::string(row.param.name); });

class HostPagesTest : public HostFixture {};

TEST_F(HostPagesTest, CallsTheProgramAfterTheLibraryHasHeardOfThePage) {
    start();
    host->onPage([&] { note("page"); });
    runThrough({R"({"clientReady":"a"})"});
    EXPECT_THAT(events(),
                testing::ElementsAre("initialise", "online", R"(library heard {"clientReady":"a"})",
                                     "page", "terminate"));
}

TEST_F(HostPagesTest, WaitsForTheLoopWithPagesThatAreEarly) {
    start();
    tdom::messaging::ConnectorMessageService gateway("test gateway");
    gateway.publish("/dova2/web", R"({"clientReady":"a"})");
    int pages = 0;
    host->onPage([&] { ++pages; });
    runThrough({});
    EXPECT_EQ(pages, 1);
}

TEST_F(HostPagesTest, LivesWithoutAPageCall) {
    start();
    host->onPage([] { FAIL() << "called after it was taken back"; });
    host->onPage({});
    EXPECT_EQ(runThrough({R"({"clientReady":"a"})"}), 0);
}

}  // namespace DOVA::runtime
