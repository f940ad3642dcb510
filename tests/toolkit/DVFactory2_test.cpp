#include "toolkit/DVFactory2.h"

#include <gtest/gtest.h>

#include <memory>

#include "FakeBackend.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"

namespace {

using namespace DOVA;

const StringID webKey = StringID::setStringID("web");
const StringID otherKey = StringID::setStringID("other");

/// Leaves the choice as every program finds it.
class Factory : public testing::Test {
protected:
    ~Factory() override { DVFactory2::chooseBackend(webKey); }
};

TEST_F(Factory, WebIsChosenUnlessToldOtherwise) {
    FakeBackend other("other");
    EXPECT_EQ(DVFactory2::current(), nullptr);
    FakeBackend web("web");
    EXPECT_EQ(DVFactory2::current(), web.factory());
    DVButton2 button;
    EXPECT_TRUE(web.implements(button));
}

TEST_F(Factory, ChosenBackendImplementsWhatIsMadeFromThenOn) {
    FakeBackend web("web");
    FakeBackend other("other");
    DVButton2 early;
    DVFactory2::chooseBackend(otherKey);
    {
        DVButton2 late;
        EXPECT_TRUE(other.implements(late));
        EXPECT_FALSE(web.implements(late));
    }
    EXPECT_EQ(other.log, "+Button-Button");
    EXPECT_EQ(web.log, "+Button");
}

TEST_F(Factory, ObjectEndsInTheBackendThatMadeIt) {
    FakeBackend web("web");
    FakeBackend other("other");
    {
        DVButton2 button;
        DVFactory2::chooseBackend(otherKey);
    }
    EXPECT_EQ(web.log, "+Button-Button");
    EXPECT_EQ(other.log, "");
}

TEST_F(Factory, LaterRegistrationReplaces) {
    FakeBackend first("web");
    FakeBackend second("web");
    EXPECT_EQ(DVFactory2::getFactory(webKey), second.factory());
    first.loseFactory();
    EXPECT_EQ(DVFactory2::getFactory(webKey), second.factory());
}

TEST_F(Factory, NullAndTheEndTakeTheEntryOut) {
    FakeBackend backend("web");
    DVFactory2::registerFactory(otherKey, backend.factory());
    DVFactory2::registerFactory(webKey, nullptr);
    EXPECT_EQ(DVFactory2::getFactory(webKey), nullptr);
    EXPECT_EQ(DVFactory2::getFactory(otherKey), backend.factory());
    backend.loseFactory();
    EXPECT_EQ(DVFactory2::getFactory(otherKey), nullptr);
}

TEST_F(Factory, UnknownBackendImplementsNothing) {
    FakeBackend web("web");
    DVFactory2::chooseBackend(StringID::setStringID("nobody"));
    DVButton2 button(nullptr, u"label");
    EXPECT_EQ(button.label(), u"");
    EXPECT_EQ(web.log, "");
}

TEST_F(Factory, ObjectMadeBeforeTheBackendStaysWithout) {
    DVButton2 early;
    FakeBackend web("web");
    early.setLabel(u"label");
    EXPECT_EQ(early.label(), u"");
    EXPECT_FALSE(web.implements(early));
}

}  // namespace
