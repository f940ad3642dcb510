#include "windows/WebDialog2.h"

#include <QJsonObject>
#include <limits>
#include <memory>

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
