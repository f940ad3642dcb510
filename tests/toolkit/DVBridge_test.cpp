#include "toolkit/DVBridge.h"

#include <gtest/gtest.h>

#include "toolkit/DesktopModule.h"

namespace {

using namespace DOVA;

TEST(Bridge, OfTheDesktopModuleComesAndGoes) {
    const StringID key = StringID::setStringID("qt");
    terminate_dova2_qt();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(DVBridge::getBridge(key), nullptr);
        initialize_dova2_qt();
        ASSERT_NE(DVBridge::getBridge(key), nullptr);
        DVBridge::getBridge(key)->shutDown();
        terminate_dova2_qt();
    }
    EXPECT_EQ(DVBridge::getBridge(key), nullptr);
}

}  // namespace
