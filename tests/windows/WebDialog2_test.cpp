#include "windows/WebDialog2.h"

#include <QJsonObject>
#include <limits>
#include <memory>
#include <stdexcept>

#include "host/Console.h"
#include "support/JsonRows.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
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

TEST_F(WebDialog2Test, closeRequestSaysWhoAndThatTheUserIsTheCause) {
    std::vector<std::pair<DVWidget2*, bool>> events;
    window.onCloseRequest(
        [&](const DVWidgetEvent2& event) { events.emplace_back(event.widget(), event.flag()); });
    show(window);
    client.say(clientChannel(),
               "{\"dialogDestroyed\":\"" + std::to_string(window.identifier()) + "\"}");
    EXPECT_THAT(events, ElementsAre(Pair(static_cast<DVWidget2*>(&window), false)));
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

/// The handler of the first message delivers the others. "page" is there in the end.
class LifeCycleTest : public WebDialog2Test, public testing::WithParamInterface<JsonRow> {};

/// The later message counts, even if it is handled within the earlier one. The client's address was
/// what told them apart, and a later client may have that of an earlier one.
TEST_P(LifeCycleTest, theLastMessageCounts) {
    int requests = 0;
    window.onCloseRequest([&] {
        ++requests;
        client.deliver();
    });
    show(window);
    for (const QJsonValue message : GetParam()["messages"].toArray()) {
        client.publish(RecordingClient::Root,
                       QJsonDocument(message.toObject()).toJson().toStdString());
    }
    client.deliver();
    DVDialog2 probe;
    probe.show();
    const auto notes = client.take();
    EXPECT_EQ(notes.empty() ? "" : notes[0].first, GetParam().text("page"));
    EXPECT_EQ(requests, 1);
    for (const char* page : {"a", "b"}) {
        client.say(RecordingClient::Root, "{\"clientDestroyed\":\"" + std::string(page) + "\"}");
    }
}

INSTANTIATE_TEST_SUITE_P(Nested, LifeCycleTest, testing::ValuesIn(readRows(NESTED)), RowName());

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
