#include "core/ModuleEntry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>

#include "core/KorvidOnlineFlag.h"
#include "core/WebObjectLookup.h"
#include "host/Display.h"
#include "host/FunctionEvaluation.h"
#include "host/OnlineQuery.h"
#include "scripting/TestAPI.h"
#include "support/RecordingClient.h"
#include "support/RowNames.h"
#include "toolkit/DVBridge.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVFactory2.h"

namespace DOVA::test {
namespace {

using web::KorvidOnlineFlag;

// The module starts and ends once in a process, so each story has a process of its own. It ends
// through exit(), with everything that static objects do then.

/// An online module with a client and a shown window, which counts what it is asked for.
struct Scene {
    Scene() {
        initialize_dova2_web();
        KorvidOnlineFlag::set(true);
        say("", R"({"clientReady":"page"})");
        window = std::make_unique<DVDialog2>();
        button = std::make_unique<DVButton2>(window.get());
        window->onCloseRequest([this] { asked(); });
        window->onResize([this] { asked(); });
        button->onClick([this] { asked(); });
        window->show();
        client.take();
    }
    void asked() {
        ++requests;
        if (handler) {
            handler();
        }
    }
    /// `channel` is below the root, and # in it and in the text stands for the window.
    void publish(std::string channel, std::string text) {
        for (std::string* each : {&channel, &text}) {
            if (const auto at = each->find('#'); at != each->npos) {
                each->replace(at, 1, std::to_string(window->identifier()));
            }
        }
        client.publish(RecordingClient::Root + channel, text);
    }
    void say(const std::string& channel, const std::string& text) {
        publish(channel, text);
        client.deliver();
    }
    /// Where a new window comes to, empty if nowhere.
    std::string channelOfANewWindow() {
        client.take();
        DVDialog2 next;
        next.show();
        const auto notes = client.take();
        return notes.empty() ? "" : notes[0].first;
    }

    RecordingClient client;
    std::unique_ptr<DVDialog2> window;
    std::unique_ptr<DVButton2> button;
    std::function<void()> handler;
    int requests = 0;
};

void startsAndEndsOnce() {
    KVInitialize_dova2_web();
    const WebObjectService2* service = WebObjectService2::instance();
    const DVFactory2* factory = DVFactory2::current();
    initialize_dova2_web();
    EXPECT_TRUE(service && service == WebObjectService2::instance());
    EXPECT_TRUE(factory && factory == DVFactory2::current());
    terminate_dova2_web();
    initialize_dova2_web();
    EXPECT_FALSE(WebObjectService2::instance());
}

void terminatedBeforeInitialised() {
    terminate_dova2_web();
    EXPECT_FALSE(WebObjectService2::instance());
    initialize_dova2_web();
    EXPECT_TRUE(WebObjectService2::instance());
    KVTerminate_dova2_web();
    EXPECT_TRUE(WebObjectService2::instance());
}

void displayBridgeIsShutDown() {
    struct Bridge : DVBridge {
        void shutDown() override {
            EXPECT_TRUE(WebObjectService2::instance());
            ++calls;
        }
        int calls = 0;
    } bridge;
    const StringID desktop = StringID::setStringID("qt");
    host::setHasDisplay(true);
    initialize_dova2_web();
    EXPECT_TRUE(DVBridge::getBridge(desktop));
    DVBridge::registerBridge(desktop, &bridge);
    host::setHasDisplay(false);  // what counts is the start
    terminate_dova2_web();
    EXPECT_TRUE(bridge.calls == 1 && !DVBridge::getBridge(desktop));
}

void frontObjectsOutliveTheModule() {
    Scene scene;
    terminate_dova2_web();
    scene.client.take();
    scene.button->setLabel(u"late");
    scene.window->setTitle(u"late");
    scene.window->showNormal();
    EXPECT_TRUE(scene.button->label() == u"late");
    EXPECT_TRUE(!scene.button->parent() && scene.window->children().empty());
    scene.window.reset();
    DVButton2 afterwards;
    afterwards.setLabel(u"kept");
    EXPECT_TRUE(afterwards.label() == u"kept");
    EXPECT_TRUE(scene.client.take().empty());
}

/// While the service is gone and the connections are not, and after both.
void messagesAtAndAfterTheEnd() {
    Scene scene;
    const auto speak = [&] {
        scene.publish("/page/#", R"({"id":"#","resize":true})");
        scene.publish("/page", R"({"dialogDestroyed":"#"})");
        scene.publish("", R"({"clientReady":"other"})");
        scene.publish("", R"({"clientDestroyed":"other"})");
    };
    speak();
    WebObjectService2::install(nullptr);
    scene.client.deliver();
    speak();
    terminate_dova2_web();
    scene.client.deliver();
    EXPECT_TRUE(scene.requests == 0);
}

void terminatedByAHandler() {
    Scene scene;
    scene.handler = terminate_dova2_web;
    const std::string click =
        "{\"id\":\"" + std::to_string(scene.button->identifier()) + "\",\"event\":\"onClick\"}";
    scene.say("/page/#", "[" + click + "," + click + "]");
    EXPECT_TRUE(scene.requests == 1);
}

void terminatedWhileDialogsAreAsked() {
    Scene scene;
    DVDialog2 second;
    second.onCloseRequest([&] { scene.asked(); });
    second.show();
    scene.handler = terminate_dova2_web;
    scene.say("", R"({"clientReady":"other"})");
    EXPECT_TRUE(scene.requests == 1 && scene.channelOfANewWindow().empty());
}

/// That the script namespaces come and go, and what scripts hold stays, is told of the loaded
/// module.
void testsPackageComesAndGoes() {
    EXPECT_FALSE(TestAPI::getTestsPackage());
    initialize_dova2_web();
    EXPECT_TRUE(TestAPI::getTestsPackage());
    terminate_dova2_web();
    EXPECT_FALSE(TestAPI::getTestsPackage());
}

void answerOnlineWith(kaArray* (*answer)(), int& asked) {
    host::registerFunction("korvid.internal.environment.context.isKORVIDOnline",
                           [=, &asked](const auto&, int) {
                               ++asked;
                               std::vector<host::ArrayPointer> results;
                               results.emplace_back(answer());
                               return results;
                           });
}

void flagAsksTheHostOnceAndTheBusForClients() {
    int asked = 0;
    answerOnlineWith([] { return kaCreateLogicalScalar(true); }, asked);
    RecordingClient client;
    EXPECT_TRUE(KorvidOnlineFlag::get() && KorvidOnlineFlag::get() && asked == 1);
    EXPECT_TRUE(client.take().size() == 1);
    KorvidOnlineFlag::reset();
    EXPECT_TRUE(asked == 1);
    EXPECT_TRUE(KorvidOnlineFlag::get() && asked == 2);
    EXPECT_TRUE(KorvidOnlineFlag::set(false) && !KorvidOnlineFlag::get());
    EXPECT_TRUE(client.take().empty());
}

void flagOfAHostWithoutAnswer() {
    int asked = 0;
    EXPECT_FALSE(KorvidOnlineFlag::get());
    answerOnlineWith([] { return kaCreateDoubleScalar(1); }, asked);
    KorvidOnlineFlag::reset();
    EXPECT_TRUE(!KorvidOnlineFlag::get() && asked == 1);  // a double is no logical
    host::setVantrolOnline(true);
    KorvidOnlineFlag::setFlagValue(true);
    KorvidOnlineFlag::reset();
    EXPECT_TRUE(!KorvidOnlineFlag::get() && asked == 1);
}

using test::operator<<;  // NOLINT(misc-unused-using-decls): GoogleTest prints rows with it

struct Story {
    const char* name;
    void (*run)();
};

class ModuleEntryTest : public testing::TestWithParam<Story> {};

TEST_P(ModuleEntryTest, inAProcessOfItsOwn) {
    const auto child = [] {
        GetParam().run();
        std::exit(HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

#define STORY(function)     \
    Story {                 \
        #function, function \
    }

INSTANTIATE_TEST_SUITE_P(
    Stories, ModuleEntryTest,
    testing::Values(STORY(startsAndEndsOnce), STORY(terminatedBeforeInitialised),
                    STORY(displayBridgeIsShutDown), STORY(frontObjectsOutliveTheModule),
                    STORY(messagesAtAndAfterTheEnd), STORY(terminatedByAHandler),
                    STORY(terminatedWhileDialogsAreAsked), STORY(testsPackageComesAndGoes),
                    STORY(flagAsksTheHostOnceAndTheBusForClients), STORY(flagOfAHostWithoutAnswer)),
    RowName());

}  // namespace
}  // namespace DOVA::test
