// What the toolkit keeps for the whole process: interned texts, bridges, the display's scale, the
// application's context.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "toolkit/ApplicationContext.h"
#include "toolkit/DVBridge.h"
#include "toolkit/DesktopModule.h"
#include "toolkit/DpiScale.h"
#include "toolkit/StringID.h"

namespace {

using namespace DOVA;

TEST(StringIdentifier, IsEqualForEqualTexts) {
    const StringID web = StringID::setStringID("web");
    EXPECT_EQ(web, StringID::setStringID(std::string("we") + "b"));
    EXPECT_NE(web, StringID::setStringID("Web"));
    EXPECT_NE(StringID::setStringID(std::string("a\0b", 3)), StringID::setStringID("a"));
    EXPECT_EQ(StringID(), StringID::setStringID(""));
    EXPECT_EQ(web.text(), "web");
}

TEST(StringIdentifier, IsAHashKey) {
    std::unordered_set<StringID> set;
    for (const char* text : {"web", "qt", "", "web", "qt"}) {
        set.insert(StringID::setStringID(text));
    }
    EXPECT_EQ(set.size(), 3u);
}

TEST(StringIdentifier, IsOneForAllThreads) {
    constexpr int texts = 200;
    std::vector<std::vector<StringID>> made(4);
    std::vector<std::thread> threads;
    for (auto& own : made) {
        threads.emplace_back([&own] {
            for (int i = 0; i < texts; ++i) {
                own.push_back(StringID::setStringID("text " + std::to_string(i)));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const auto& own : made) {
        EXPECT_EQ(own, made.front());
    }
}

class CountingBridge : public DVBridge {
public:
    void shutDown() override { ++calls; }
    int calls = 0;
};

TEST(Bridge, IsFoundByItsKey) {
    const StringID key = StringID::setStringID("counting");
    EXPECT_EQ(DVBridge::getBridge(key), nullptr);
    CountingBridge first;
    CountingBridge second;
    DVBridge::registerBridge(key, &first);
    DVBridge::registerBridge(key, &second);
    DVBridge::getBridge(key)->shutDown();
    EXPECT_EQ(first.calls, 0);
    EXPECT_EQ(second.calls, 1);
    DVBridge::registerBridge(key, nullptr);
    DVBridge::registerBridge(key, nullptr);
    EXPECT_EQ(DVBridge::getBridge(key), nullptr);
}

TEST(Bridge, OfTheDesktopModuleComesAndGoes) {
    const StringID key = StringID::setStringID("qt");
    terminate_dova2_qt();
    EXPECT_EQ(DVBridge::getBridge(key), nullptr);
    for (int round = 0; round < 2; ++round) {
        initialize_dova2_qt();
        ASSERT_NE(DVBridge::getBridge(key), nullptr);
        DVBridge::getBridge(key)->shutDown();
        terminate_dova2_qt();
        EXPECT_EQ(DVBridge::getBridge(key), nullptr);
    }
}

struct ScaleRow {
    const char* name;
    double set;
    double expected;
};

class Scale : public testing::TestWithParam<ScaleRow> {
protected:
    Scale() { setDpiScale(2.0); }
    ~Scale() override { setDpiScale(1.0); }
};

TEST_P(Scale, IsPositiveAndFinite) {
    setDpiScale(GetParam().set);
    EXPECT_EQ(dpiScale(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Display, Scale,
    testing::Values(ScaleRow{"fraction", 1.25, 1.25}, ScaleRow{"small", 0.5, 0.5},
                    ScaleRow{"zero", 0.0, 2.0}, ScaleRow{"negative", -1.5, 2.0},
                    ScaleRow{"infinite", std::numeric_limits<double>::infinity(), 2.0},
                    ScaleRow{"notANumber", std::nan(""), 2.0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ApplicationContext, IsHeldForWhoeverStillUsesIt) {
    auto& services = DVServices::ServiceHolder::instance();
    EXPECT_EQ(services.applicationContext(), nullptr);
    services.setApplicationContext(
        std::make_shared<DVServices::RootedApplicationContext>("/srv/program"));
    const auto used = services.applicationContext();
    services.setApplicationContext(nullptr);
    EXPECT_EQ(services.applicationContext(), nullptr);
    EXPECT_EQ(used->getRoot(), "/srv/program");
}

}  // namespace
