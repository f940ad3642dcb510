#include "windows/WebDialog2.h"

#include <QJsonObject>
#include <limits>
#include <memory>
#include <stdexcept>

#include "host/Console.h"
#include "support/RowNames.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class WebDialog2Test : public WebFixture {
protected:
    DVDialog2 window;
};

TEST_F(WebDialog2Test, acceleratorsBecomeKeys) {
    std::vector<std::pair<int, unsigned>> keys;
    window.onKey([&](const DVKeyEvent2& event) {
        keys.emplace_back(event.key(), event.modifiers());
        EXPECT_EQ(event.receiver(), &window);
        EXPECT_TRUE(event.text().empty() && event.count() == 0 && !event.isSynthetic());
    });
    for (int accelerator = -1; accelerator <= 6; ++accelerator) {
        window.sendAccKey(static_cast<DVDialogAccel>(accelerator));
    }
    webObject<WebDialog2>(window)->closeDialog();
    EXPECT_THAT(keys, ElementsAre(Pair(61, 0x04000000u), Pair(45, 0x04000000u),
                                  Pair(0x01000000, 0u), Pair(0x01000000, 0u)));
}

TEST_F(WebDialog2Test, flagsAnswerWhatWasSetNotWhatTheClientSays) {
    show(window);
    EXPECT_FALSE(window.isModal() || window.isTransient());
    window.setModal(true);
    window.setTransient(true);
    say(window, window, R"("modal":false,"transient":false)");
    EXPECT_TRUE(window.isModal() && window.isTransient());
}

TEST_F(WebDialog2Test, closeRequestSaysWhoAndThatTheUserIsTheCause) {
    std::vector<std::pair<DVWidget2*, bool>> events;
    window.onCloseRequest(
        [&](const DVWidgetEvent2& event) { events.emplace_back(event.widget(), event.flag()); });
    show(window);
    client.say(clientChannel(),
               "{\"dialogDestroyed\":\"" + std::to_string(window.identifier()) + "\"}");
    EXPECT_THAT(events, ElementsAre(Pair(static_cast<DVWidget2*>(&window), false)));
}

/// A window below another one: it was once left open at the client when the upper one went.
TEST_F(WebDialog2Test, aWindowBelowAnotherIsClosedWithIt) {
    auto upper = std::make_unique<DVDialog2>();
    DVDialog2 lower;
    DVButton2 button(&lower);
    lower.setParent(upper.get());
    show(*upper);
    show(lower);
    const std::string channels[] = {windowChannel(*upper), windowChannel(lower)};
    upper.reset();
    EXPECT_THAT(client.take(), ElementsAre(Pair(channels[0], HasSubstr("\"command\":\"close\"")),
                                           Pair(channels[1], HasSubstr("\"command\":\"close\""))));
}

/// It went to the page that was leaving, where nobody saw it.
TEST_F(WebDialog2Test, aDialogOpenedByACloseHandlerIsForTheNextPage) {
    DVDialog2 question;
    window.onCloseRequest([&] {
        question.show();
        question.emitters()->showAgain.emit();  // nobody is there yet
    });
    show(window);
    client.say(RecordingClient::Root, R"({"clientReady":"next"})");
    const std::string next = std::string(RecordingClient::Root) + "/next";
    EXPECT_THAT(client.take(), ElementsAre(Pair(next, HasSubstr("\"type\":\"Dialog\""))));
    question.setTitle(u"Save?");
    EXPECT_THAT(client.take(), ElementsAre(Pair(HasSubstr(next + "/"), HasSubstr("Save?"))));
    client.say(RecordingClient::Root, R"({"clientDestroyed":"next"})");
}

/// What threw took the rest along: handlers, the message's other events, the dialogs, the new page.
TEST_F(WebDialog2Test, aHandlerThatThrowsCostsNobodyElseAnything) {
    std::string printed;
    std::string order;
    const auto console =
        host::redirectConsole([&](std::string_view text) { printed += std::string(text); });
    const auto fail = [&](const char* mark) {
        return [&order, mark] {
            order += mark;
            throw std::runtime_error(std::string(mark) + "\nand more");
        };
    };
    DVButton2 button(&window);
    button.onClick(fail("a"));
    button.onClick([&] { order += "b"; });
    window.onKey(fail("c"));
    window.onResize(fail("d"));
    DVDialog2 second;
    window.onCloseRequest(fail("e"));
    second.onCloseRequest(fail("e"));
    show(window);
    show(second);
    const std::string click = message(button, "\"event\":\"onClick\"");
    client.say(windowChannel(window), "[" + click + "," +
                                          message(window, "\"increaseFontSize\":1,\"resize\":1") +
                                          "," + click + "]");
    client.say(RecordingClient::Root, R"({"clientReady":"next"})");
    EXPECT_EQ(order, "abcdabee");
    std::string lines;
    for (const char mark : {'a', 'c', 'd', 'a', 'e', 'e'}) {
        lines += std::string("dova2_web: a handler threw: ") + mark + "\n";
    }
    EXPECT_EQ(printed, lines);
    host::redirectConsole(console);
    DVDialog2 third;
    third.show();
    EXPECT_EQ(client.take().at(0).first, "/dova2/web/next");
}

struct LifeCycle {
    const char* name;
    std::vector<std::string> messages;  // of which the first one's handler delivers the others
    const char* page;                   // that is there in the end
};
using test::operator<<;

class LifeCycleTest : public WebDialog2Test, public testing::WithParamInterface<LifeCycle> {};

/// The later message counts, even if it is handled within the earlier one. The client's address was
/// what told them apart, and a later client may have that of an earlier one.
TEST_P(LifeCycleTest, theLastMessageCounts) {
    int requests = 0;
    window.onCloseRequest([&] {
        ++requests;
        client.deliver();
    });
    show(window);
    for (const std::string& message : GetParam().messages) {
        client.publish(RecordingClient::Root, message);
    }
    client.deliver();
    DVDialog2 probe;
    probe.show();
    const auto notes = client.take();
    EXPECT_EQ(notes.empty() ? "" : notes[0].first, GetParam().page);
    EXPECT_EQ(requests, 1);
    for (const char* page : {"a", "b"}) {
        client.say(RecordingClient::Root, "{\"clientDestroyed\":\"" + std::string(page) + "\"}");
    }
}

const std::string s_readyA = R"({"clientReady":"a"})", s_readyB = R"({"clientReady":"b"})",
                  s_readyPage = R"({"clientReady":"page"})", s_goneA = R"({"clientDestroyed":"a"})",
                  s_gonePage = R"({"clientDestroyed":"page"})";

INSTANTIATE_TEST_SUITE_P(
    Nested, LifeCycleTest,
    testing::Values(LifeCycle{"later", {s_readyA, s_readyB}, "/dova2/web/b"},
                    LifeCycle{"laterStill", {s_readyA, s_readyB, s_readyA}, "/dova2/web/a"},
                    LifeCycle{"arrivingAndGone", {s_readyA, s_goneA}, ""},
                    LifeCycle{"backAgain", {s_readyA, s_readyPage}, "/dova2/web/page"},
                    LifeCycle{"goneAndBack", {s_gonePage, s_readyPage}, "/dova2/web/page"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(WebDialog2Test, announcedAgainWithinAMessageThatGoesOn) {
    DVButton2 button(&window);
    DVButton2 late;
    int clicks = 0;
    int requests = 0;
    window.onCloseRequest([&] { ++requests; });
    window.onResize([&] { window.emitters()->showAgain.emit(); });
    button.onClick([&] { ++clicks; });
    window.emitters()->showAgain.emit();  // not shown yet
    show(window);
    const std::string close =
        "{\"dialogDestroyed\":\"" + std::to_string(window.identifier()) + "\"}";
    client.say(clientChannel(), close);
    late.setParent(&window);
    client.say(windowChannel(window), "[" + message(window, "\"resize\":1") + "," +
                                          message(button, "\"event\":\"onClick\"") + "]");
    EXPECT_THAT(client.take(), ElementsAre(Pair(clientChannel(), HasSubstr("\"contents\""))));
    client.say(clientChannel(), close);
    EXPECT_TRUE(clicks == 1 && requests == 2);
}

TEST_F(WebDialog2Test, announcedAgainToALaterPage) {
    DVButton2 button(&window);
    int clicks = 0;
    button.onClick([&] { ++clicks; });
    show(window);
    client.say(RecordingClient::Root, s_readyA);
    window.emitters()->showAgain.emit();
    client.take();
    button.setLabel(u"here");
    const std::string channel = "/dova2/web/a/" + std::to_string(window.identifier());
    EXPECT_THAT(client.take(), ElementsAre(Pair(channel, HasSubstr("here"))));
    for (const std::string& page : {windowChannel(window), channel}) {
        client.say(page, message(button, "\"event\":\"onClick\""));
    }
    EXPECT_EQ(clicks, 1);
    client.say(RecordingClient::Root, s_goneA);
}

TEST_F(WebDialog2Test, aHostsOwnInfinitiesAreSurvived) {
    const double endless = std::numeric_limits<double>::infinity();
    auto* web = webObject<WebDialog2>(window);
    for (const char16_t* name : {u"geometry", u"frameGeometry"}) {
        web->setProperty(name, QJsonValue(QJsonObject{{"x", endless}}), false);
    }
    EXPECT_EQ(window.frameOffset().x, 0);
}

}  // namespace
}  // namespace DOVA::test
