#include "toolkit/DVFactory2.h"

#include <gtest/gtest.h>

#include "FakeBackend.h"
#include "toolkit/DVButton2.h"

namespace {

using namespace DOVA;

const StringID s_webKey = StringID::setStringID("web");
const StringID s_otherKey = StringID::setStringID("other");

TEST(Factory, ObjectStaysWithTheBackendThatMadeIt) {
    FakeBackend other("other");
    DVButton2 before;
    FakeBackend web("web");
    {
        DVButton2 early;
        DVFactory2::chooseBackend(s_otherKey);
        DVButton2 late;
        EXPECT_TRUE(web.implements(early));
        EXPECT_TRUE(other.implements(late));
        DVFactory2::chooseBackend(StringID::setStringID("nobody"));
        EXPECT_EQ(DVButton2(nullptr, u"label").label(), u"");
        // As every program finds it.
        DVFactory2::chooseBackend(s_webKey);
    }
    before.setLabel(u"label");
    EXPECT_EQ(before.label(), u"");
    EXPECT_EQ(web.log, "+Button-Button");
    EXPECT_EQ(other.log, "+Button-Button");
}

TEST(Factory, LaterRegistrationReplacesAndNullOrTheEndTakesOut) {
    FakeBackend first("web");
    FakeBackend second("web");
    first.loseFactory();
    EXPECT_EQ(DVFactory2::current(), second.factory());
    DVFactory2::registerFactory(s_otherKey, second.factory());
    DVFactory2::registerFactory(s_webKey, nullptr);
    EXPECT_EQ(DVFactory2::current(), nullptr);
    EXPECT_EQ(DVFactory2::getFactory(s_otherKey), second.factory());
    second.loseFactory();
    EXPECT_EQ(DVFactory2::getFactory(s_otherKey), nullptr);
}

}  // namespace
