#include "toolkit/DVFactory2.h"

#include <gtest/gtest.h>

#include "FakeBackend.h"
#include "toolkit/DVButton2.h"

namespace {

using namespace DOVA;

const StringID webKey = StringID::setStringID("web");
const StringID otherKey = StringID::setStringID("other");

/// Leaves the choice as every program finds it.
class Factory : public testing::Test {
protected:
    ~Factory() override { DVFactory2::chooseBackend(webKey); }
};

TEST_F(Factory, ObjectStaysWithTheBackendThatMadeIt) {
    FakeBackend other("other");
    DVButton2 before;
    FakeBackend web("web");
    DVObject::Identifier ended = 0;
    WIRO::connect(web.factory()->destroy, [&](unsigned identifier) { ended = identifier; });
    DVObject::Identifier expected = 0;
    {
        DVButton2 early;
        expected = early.identifier();
        DVFactory2::chooseBackend(otherKey);
        DVButton2 late;
        EXPECT_TRUE(web.implements(early));
        EXPECT_TRUE(other.implements(late));
        DVFactory2::chooseBackend(StringID::setStringID("nobody"));
        DVButton2 nobodys(nullptr, u"label");
        EXPECT_EQ(nobodys.label(), u"");
    }
    EXPECT_EQ(ended, expected);
    before.setLabel(u"label");
    EXPECT_EQ(before.label(), u"");
    EXPECT_EQ(web.log, "+Button-Button");
    EXPECT_EQ(other.log, "+Button-Button");
}

TEST_F(Factory, LaterRegistrationReplacesAndNullOrTheEndTakesOut) {
    FakeBackend first("web");
    FakeBackend second("web");
    first.loseFactory();
    EXPECT_EQ(DVFactory2::current(), second.factory());
    DVFactory2::registerFactory(otherKey, second.factory());
    DVFactory2::registerFactory(webKey, nullptr);
    EXPECT_EQ(DVFactory2::current(), nullptr);
    EXPECT_EQ(DVFactory2::getFactory(otherKey), second.factory());
    second.loseFactory();
    EXPECT_EQ(DVFactory2::getFactory(otherKey), nullptr);
}

}  // namespace
