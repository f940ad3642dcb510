#include "windows/WebDialog2.h"

#include <QJsonObject>
#include <limits>
#include <memory>

#include "support/WebFixture.h"
#include "toolkit/ApplicationContext.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVText2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// What the window tests say of close messages: the type is that of the window's base by then.
std::string closeText(unsigned id) {
    return "[{\"command\":\"close\",\"id\":\"" + std::to_string(id) +
           "\",\"type\":\"WebAbstractWindow2\"}]";
}

class WebDialog2Test : public WebFixture {
protected:
    ~WebDialog2Test() override {
        DVServices::ServiceHolder::instance().setApplicationContext(nullptr);
    }

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

TEST_F(WebDialog2Test, resizesAreReportedWhetherMonitoredOrNot) {
    int resizes = 0;
    window.onResize([&] { ++resizes; });
    show(window);
    say(window, window, "\"resize\":true");
    window.monitorResize(true);
    window.monitorResize(false);
    say(window, window, "\"resize\":true");
    EXPECT_EQ(resizes, 2);
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
    const std::string closed =
        "{\"dialogDestroyed\":\"" + std::to_string(window.identifier()) + "\"}";
    client.say(clientChannel(), closed);
    client.say(clientChannel(), closed);  // a dialog that stays is not asked again
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
    const unsigned ids[] = {upper->identifier(), lower.identifier()};
    upper.reset();
    EXPECT_THAT(
        client.take(),
        ElementsAre(Pair(clientChannel() + "/" + std::to_string(ids[0]), closeText(ids[0])),
                    Pair(clientChannel() + "/" + std::to_string(ids[1]), closeText(ids[1]))));
    client.say(clientChannel(), "{\"dialogDestroyed\":\"" + std::to_string(ids[1]) + "\"}");
}

TEST_F(WebDialog2Test, closeIsSaidBeforeTheChannelGoes) {
    show(window);
    webObject<WebDialog2>(window)->sendWindowDestroyMessage();
    const unsigned id = window.identifier();
    window.close();
    const std::string earlier =
        "[{\"command\":\"close\",\"id\":\"" + std::to_string(id) + "\",\"type\":\"Dialog\"}]";
    EXPECT_THAT(client.takeTexts(), ElementsAre(earlier, closeText(id)));
    EXPECT_THAT(service().getConnectionNumbers(id), IsEmpty());
    client.say(clientChannel(), "{\"dialogDestroyed\":\"" + std::to_string(id) + "\"}");
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(WebDialog2Test, aHandlerThatDestroysTheWindowEndsTheAskingOfTheClient) {
    auto second = std::make_unique<DVDialog2>();
    std::unique_ptr<DVDialog2> opened;
    int asked = 0;
    for (DVDialog2* dialog : {&window, second.get()}) {
        dialog->onCloseRequest([&] {
            ++asked;
            window.close();
            second.reset();
            opened = std::make_unique<DVDialog2>();
            opened->show();
        });
        show(*dialog);
    }
    clientReady("other");
    EXPECT_EQ(asked, 1);
    clientDestroyed("other");
}

TEST_F(WebDialog2Test, iconPathsAreMadeAbsolute) {
    struct Row {
        const char* root;
        const char16_t* path;
        const char* icon;
    };
    const Row rows[] = {
        {"/opt/app", u"C:\\icons\\a.png", "/opt/app/C:/icons/a.png"},
        {"/opt/app", u"/opt/app/a.png", "/opt/app/a.png"},
        {"/opt/app", u"x/opt/app\\a.png", "x/opt/app/a.png"},
        {"C:\\app", u"a.png", "C:/app/a.png"},
        {"/opt/größe", u"", "/opt/größe/"},
    };
    show(window);
    for (const Row& row : rows) {
        DVServices::ServiceHolder::instance().setApplicationContext(
            std::make_shared<DVServices::RootedApplicationContext>(row.root));
        window.setIconWithPath(row.path);
        EXPECT_THAT(client.takeTexts(),
                    ElementsAre(sent(window, "Dialog",
                                     "\"windowicon\":\"" + std::string(row.icon) + "\"")));
    }
    DVServices::ServiceHolder::instance().setApplicationContext(nullptr);
    window.setIconWithPath(u"b.png");
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(WebDialog2Test, numbersWithoutBoundsAreNoUndefinedRectangles) {
    show(window);
    say(window, window,
        R"("geometry":{"x":1e308,"y":-1e308,"width":2147483648,"height":-2147483649})");
    say(window, window, R"("frameGeometry":{"x":-1e308,"y":1e308,"width":0,"height":0})");
    constexpr int most = 2147483647;
    EXPECT_TRUE(window.geometry() ==
                (diagram::RectTemplate<int>{most, -most - 1, most, -most - 1}));
    EXPECT_TRUE(window.frameOffset() ==
                (diagram::RectTemplate<int>{most, -most - 1, most, -most - 1}));
}

TEST_F(WebDialog2Test, aHostsOwnInfinitiesAreSurvived) {
    const double endless = std::numeric_limits<double>::infinity();
    auto* web = webObject<WebDialog2>(window);
    for (const char16_t* name : {u"geometry", u"frameGeometry"}) {
        web->setProperty(name, QJsonValue(QJsonObject{{"x", endless}}), false);
    }
    EXPECT_EQ(window.frameOffset().x, 0);
}

TEST_F(WebDialog2Test, aDescriptionOfTenThousandTellsAllInOrder) {
    DVBoxLayout2 rows(&window);
    window.setLayout(&rows);
    constexpr int count = 10000;
    for (int i = 0; i < count; ++i) {
        rows.addWidget(&window.make<DVText2>());
    }
    window.show();
    const auto texts = client.takeTexts();
    ASSERT_EQ(texts.size(), 1u);
    const QJsonObject description =
        QJsonDocument::fromJson(QByteArray::fromStdString(texts[0])).object();
    const QJsonArray layouts = description["contents"].toArray();
    const QJsonArray contents = layouts[0].toObject()["contents"].toArray();
    ASSERT_EQ(contents.size(), count);
    const auto children = rows.children();
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(contents[i].toObject()["id"].toString().toUInt(), children[i]->identifier());
    }
}

}  // namespace
}  // namespace DOVA::test
