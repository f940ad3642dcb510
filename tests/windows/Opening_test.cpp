// When a window is on the page: what the program, the user and the pages do, and what is published.

#include <map>
#include <memory>

#include "support/JsonRows.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

/// In opening.json the program is "deaf" to close requests, or is asked and "stays",
/// "tells" and stays, or is "undecided"; each step and each published text is a letter.
class OpeningTest : public WebFixture, public testing::WithParamInterface<JsonRow> {
protected:
    OpeningTest() {
        const std::string program = GetParam().text("program");
        if (program != "deaf") {
            window.onCloseRequest([=] { decide(program); });
        }
    }

    ~OpeningTest() override { leave(); }

    void decide(const std::string& program) {
        if (program == "tells") {
            button.showMessage(u"error", u"", u"");
        }
        if (program != "undecided") {
            window.stayOpen();
        }
    }

    void leave() { client.say(RecordingClient::Root, R"({"clientDestroyed":")" + page + "\"}"); }

    void arrive() {
        page = "page" + std::to_string(++pages);
        client.say(RecordingClient::Root, R"({"clientReady":")" + page + "\"}");
        DVAbstractWindow2::openDue();
    }

    void pressX() {
        client.say(std::string(RecordingClient::Root) + "/" + page,
                   R"({"dialogDestroyed":")" + std::to_string(window.identifier()) + "\"}");
        DVAbstractWindow2::openDue();
    }

    const std::map<char, std::function<void()>> steps{
        {'s', [this] { window.show(); }},
        {'h', [this] { window.hide(); }},
        {'v', [this] { window.setVisible(true); }},
        {'n', [this] { window.showNormal(); }},
        {'M', [this] { window.showMaximized(); }},
        {'_', [this] { window.showMinimized(); }},
        {'b', [this] { button.showMessage(u"error", u"", u""); }},
        {'o', [this] { window.stayOpen(); }},
        {'c', [this] { window.close(); }},
        {'!', [this] { leave(); }},
        {'p', [this] { arrive(); }},
        {'x', [this] { pressX(); }},
    };

    /// A letter for each text on the channels of the present page.
    std::string published() {
        const std::pair<const char*, char> marks[] = {
            {"\"version\"", 'D'},       {"messagebox", 'b'},
            {"\"visible\":false", '-'}, {"\"visible\":true", '+'},
            {"showNormal", 'n'},        {"showMaximized", 'M'},
            {"showMinimized", '_'},     {"\"command\":\"close\"", 'c'},
        };
        std::string letters;
        for (const auto& [channel, text] : client.take()) {
            for (const auto& [words, letter] : marks) {
                if (channel.find("/" + page) != channel.npos && text.find(words) != text.npos) {
                    letters += letter;
                    break;
                }
            }
        }
        return letters;
    }

    std::string page = "page";
    int pages = 0;
    DVDialog2 window;
    DVButton2 button{&window};
};
TEST_P(OpeningTest, isPublished) {
    DVAbstractWindow2::openDue();
    std::string all;
    for (const char step : GetParam().text("steps")) {
        steps.at(step)();
        all += published();
    }
    EXPECT_EQ(all, GetParam().text("published"));
}

INSTANTIATE_TEST_SUITE_P(Windows, OpeningTest, testing::ValuesIn(readRows(OPENING)), RowName());

class ShowingTest : public WebFixture {};

TEST_F(ShowingTest, windowsThatWaitComeInTheOrderOfTheirOpening) {
    DVAbstractWindow2::openDue();
    client.say(RecordingClient::Root, R"({"clientDestroyed":"page"})");
    DVDialog2 first, second;
    auto gone = std::make_unique<DVDialog2>();
    for (DVDialog2* window : {&second, gone.get(), &first, &second}) {
        window->show();
    }
    gone.reset();
    client.say(RecordingClient::Root, R"({"clientReady":"page"})");
    DVAbstractWindow2::openDue();
    const auto described = [](const DVDialog2& window) {
        return Pair(clientChannel(), HasSubstr("\"id\":\"" + std::to_string(window.identifier())));
    };
    EXPECT_THAT(client.take(), ElementsAre(described(first), described(second)));
}

/// What was hidden stayed hidden: show() described it as it was.
TEST_F(ShowingTest, hiddenWidgetsOfEveryKindComeBack) {
    DVDialog2 window;
    DVPanel2 panel(&window);
    DVGroupBox2 group(&panel, u"");
    DVTabContainer2 tabs(&group);
    DVTab2 tab(&tabs, u"");
    DVButton2 button(&tab, u"");
    show(window);
    for (DVWidget2* widget :
         std::initializer_list<DVWidget2*>{&panel, &group, &tabs, &tab, &button}) {
        const std::string id = "\"id\":\"" + std::to_string(widget->identifier()) + "\"";
        widget->show();
        EXPECT_THAT(client.takeTexts(), ElementsAre(HasSubstr("\"refresh\"")));
        widget->hide();
        widget->setVisible(true);
        widget->hide();
        widget->show();
        const auto is = [&](const char* flag) {
            return testing::AllOf(HasSubstr(id), HasSubstr(std::string("\"visible\":") + flag));
        };
        const auto whole = testing::AllOf(is("true"), HasSubstr("\"refresh\""));
        EXPECT_THAT(client.takeTexts(),
                    ElementsAre(is("false"), is("true"), is("false"), is("true"), whole));
    }
    panel.hide();
    button.hide();
    client.take();
    panel.show();
    EXPECT_THAT(client.takeTexts().back(), HasSubstr("\"type\":\"Button\",\"visible\":false"))
        << "it was hidden itself";
}

}  // namespace
}  // namespace DOVA::test
