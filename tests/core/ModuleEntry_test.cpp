#include "core/ModuleEntry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>

#include "core/KorvidOnlineFlag.h"
#include "core/WebObjectLookup.h"
#include "host/Display.h"
#include "host/FunctionEvaluation.h"
#include "host/OnlineQuery.h"
#include "support/RecordingClient.h"
#include "toolkit/DVBridge.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVFactory2.h"

namespace DOVA::test {
namespace {

using web::KorvidOnlineFlag;

DVFactory2* webFactory() {
    return DVFactory2::getFactory(StringID::setStringID("web"));
}

/// In a child, and only there, fails the story with a line that says where.
void require(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "not so: " << what << "\n";
        std::_Exit(1);
    }
}
#define REQUIRE(condition) require(condition, #condition)

void goOnline(RecordingClient& client) {
    initialize_dova2_web();
    KorvidOnlineFlag::set(true);
    client.say(RecordingClient::Root, R"({"clientReady":"page"})");
    client.take();
}

// The module starts and ends once in a process, so each story has a process of its own. It ends
// through exit(), with everything that static objects do then.

void initialisedTwice() {
    KVInitialize_dova2_web();
    const WebObjectService2* service = WebObjectService2::instance();
    const DVFactory2* factory = webFactory();
    initialize_dova2_web();
    REQUIRE(service && service == WebObjectService2::instance());
    REQUIRE(factory && factory == webFactory());
}

void terminatedBeforeInitialised() {
    terminate_dova2_web();
    REQUIRE(!WebObjectService2::instance());
    initialize_dova2_web();
    REQUIRE(WebObjectService2::instance());
    KVTerminate_dova2_web();
    REQUIRE(WebObjectService2::instance());
}

void noWayBack() {
    initialize_dova2_web();
    terminate_dova2_web();
    initialize_dova2_web();
    REQUIRE(!WebObjectService2::instance());
}

void displayBridgeIsShutDown() {
    struct Bridge : DVBridge {
        void shutDown() override {
            REQUIRE(WebObjectService2::instance());
            ++calls;
        }
        int calls = 0;
    } bridge;
    host::setHasDisplay(true);
    initialize_dova2_web();
    DVBridge::registerBridge(StringID::setStringID("qt"), &bridge);
    host::setHasDisplay(false);  // what counts is the start
    terminate_dova2_web();
    REQUIRE(bridge.calls == 1);
}

void nothingIsSubscribedAtStart() {
    RecordingClient client;
    initialize_dova2_web();
    DVDialog2 window;
    client.say(RecordingClient::Root, R"({"clientReady":"page"})");
    window.show();
    REQUIRE(client.take().empty());
}

void frontObjectsOutliveTheModule() {
    RecordingClient client;
    goOnline(client);
    auto window = std::make_unique<DVDialog2>();
    DVButton2 button(window.get());
    window->show();
    terminate_dova2_web();
    client.take();
    button.setLabel(u"late");
    window->setTitle(u"late");
    window->showNormal();
    REQUIRE(button.label() == u"late");
    REQUIRE(!button.parent() && window->children().empty());
    window.reset();
    DVButton2 afterwards;
    afterwards.setLabel(u"kept");
    REQUIRE(afterwards.label() == u"kept");
    REQUIRE(client.take().empty());
}

void messagesAfterTheModule() {
    RecordingClient client;
    goOnline(client);
    DVDialog2 window;
    int asked = 0;
    window.onCloseRequest([&] { ++asked; });
    window.onResize([&] { ++asked; });
    window.show();
    const std::string id = std::to_string(window.identifier());
    client.publish("/dova2/web/page/" + id, "{\"id\":\"" + id + "\",\"resize\":true}");
    client.publish("/dova2/web/page", "{\"dialogDestroyed\":\"" + id + "\"}");
    client.publish("/dova2/web", R"({"clientReady":"other"})");
    terminate_dova2_web();
    client.deliver();
    REQUIRE(asked == 0);
}

void messagesBetweenTwoSteps() {
    RecordingClient client;
    goOnline(client);
    DVDialog2 window;
    int asked = 0;
    window.onCloseRequest([&] { ++asked; });
    window.show();
    WebObjectService2::install(nullptr);
    client.say("/dova2/web/page",
               "{\"dialogDestroyed\":\"" + std::to_string(window.identifier()) + "\"}");
    client.say("/dova2/web", R"({"clientReady":"other"})");
    client.say("/dova2/web", R"({"clientDestroyed":"other"})");
    terminate_dova2_web();
    REQUIRE(asked == 0);
}

void terminatedByAHandler() {
    RecordingClient client;
    goOnline(client);
    DVDialog2 window;
    DVButton2 button(&window);
    int clicks = 0;
    button.onClick([&] {
        ++clicks;
        terminate_dova2_web();
    });
    window.show();
    const std::string click =
        "{\"id\":\"" + std::to_string(button.identifier()) + "\",\"event\":\"onClick\"}";
    client.say("/dova2/web/page/" + std::to_string(window.identifier()),
               "[" + click + "," + click + "]");
    REQUIRE(clicks == 1);
}

void terminatedWhileDialogsAreAsked() {
    RecordingClient client;
    goOnline(client);
    DVDialog2 first;
    DVDialog2 second;
    for (DVDialog2* window : {&first, &second}) {
        window->onCloseRequest([] { terminate_dova2_web(); });
        window->show();
    }
    client.say("/dova2/web", R"({"clientReady":"other"})");
    DVDialog2 third;
    client.take();
    third.show();
    REQUIRE(client.take().empty());
}

/// A later client that comes in while the old one's dialogs are asked must stay.
void laterClientComesFirst() {
    RecordingClient client;
    goOnline(client);
    DVDialog2 window;
    window.onCloseRequest([&] { client.deliver(); });
    window.show();
    client.publish("/dova2/web", R"({"clientReady":"b"})");
    client.publish("/dova2/web", R"({"clientReady":"c"})");
    client.take();
    DVDialog2 second;
    second.show();
    const auto notes = client.take();
    REQUIRE(notes.size() == 1 && notes[0].first == "/dova2/web/c");
}

/// A window that a static object keeps, in a program that ends without a word to the module.
void endsWithoutTerminate() {
    static std::unique_ptr<DVDialog2> window;
    static RecordingClient client;
    goOnline(client);
    window = std::make_unique<DVDialog2>();
    window->make<DVButton2>();
    window->show();
}

void flagAsksTheHostOnce() {
    int asked = 0;
    host::registerFunction("korvid.internal.environment.context.isKORVIDOnline",
                           [&](const auto&, int) {
                               ++asked;
                               std::vector<host::ArrayPointer> results;
                               results.emplace_back(kaCreateLogicalScalar(true));
                               return results;
                           });
    RecordingClient client;
    REQUIRE(KorvidOnlineFlag::get() && KorvidOnlineFlag::get() && asked == 1);
    REQUIRE(client.take().size() == 1);
    KorvidOnlineFlag::reset();
    REQUIRE(asked == 1);
    REQUIRE(KorvidOnlineFlag::get() && asked == 2);
    REQUIRE(KorvidOnlineFlag::set(false) && !KorvidOnlineFlag::get());
    REQUIRE(client.take().empty());
}

void flagOfAHostWithoutAnswer() {
    REQUIRE(!KorvidOnlineFlag::get());
    host::registerFunction("korvid.internal.environment.context.isKORVIDOnline",
                           [](const auto&, int) {
                               std::vector<host::ArrayPointer> results;
                               results.emplace_back(kaCreateDoubleScalar(1));
                               return results;
                           });
    KorvidOnlineFlag::reset();
    REQUIRE(!KorvidOnlineFlag::get());  // a double is no logical
    host::setVantrolOnline(true);
    KorvidOnlineFlag::setFlagValue(true);
    KorvidOnlineFlag::reset();
    REQUIRE(!KorvidOnlineFlag::get());
}

struct Story {
    const char* name;
    void (*run)();
};

class ModuleEntryTest : public testing::TestWithParam<Story> {};

TEST_P(ModuleEntryTest, inAProcessOfItsOwn) {
    const auto child = [] {
        GetParam().run();
        std::exit(0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

#define STORY(function)     \
    Story {                 \
#function, function \
    }
INSTANTIATE_TEST_SUITE_P(
    Stories, ModuleEntryTest,
    testing::Values(STORY(initialisedTwice), STORY(terminatedBeforeInitialised), STORY(noWayBack),
                    STORY(displayBridgeIsShutDown), STORY(nothingIsSubscribedAtStart),
                    STORY(frontObjectsOutliveTheModule), STORY(messagesAfterTheModule),
                    STORY(messagesBetweenTwoSteps), STORY(terminatedByAHandler),
                    STORY(terminatedWhileDialogsAreAsked), STORY(laterClientComesFirst),
                    STORY(endsWithoutTerminate), STORY(flagAsksTheHostOnce),
                    STORY(flagOfAHostWithoutAnswer)),
    [](const auto& story) { return std::string(story.param.name); });

}  // namespace
}  // namespace DOVA::test
