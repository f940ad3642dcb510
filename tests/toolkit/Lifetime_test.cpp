// Who owns whom, and every order in which front objects, parents and backend may go.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>

#include "FakeBackend.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"

namespace {

using namespace DOVA;

TEST(Ownership, MadeChildrenGoWithTheirParent) {
    FakeBackend backend;
    {
        DVDialog2 dialog;
        auto& box = dialog.make<DVBoxLayout2>(Direction::LeftToRight);
        box.make<DVButton2>(u"OK");
        dialog.make<DVEdit2>();
        EXPECT_EQ(backend.log, "+Dialog+Box+Button+Edit");
        backend.log.clear();
    }
    // The window goes as a whole, not piece by piece before the user's eyes.
    EXPECT_EQ(backend.log.substr(0, 7), "-Dialog");
    EXPECT_EQ(backend.size(), 0u);
}

TEST(Ownership, MadeChildMayGoEarlier) {
    FakeBackend backend;
    DVDialog2 dialog;
    DVButton2& first = dialog.make<DVButton2>();
    DVButton2& second = dialog.make<DVButton2>();
    const auto identifier = first.identifier();
    delete &first;
    EXPECT_FALSE(DVObject::isObjectValid(&first, identifier));
    EXPECT_TRUE(DVObject::isObjectValid(&second, second.identifier()));
    EXPECT_EQ(backend.log, "+Dialog+Button+Button-Button");
}

/// A child that takes its sibling along.
struct Jealous : DVButton2 {
    using DVButton2::DVButton2;
    ~Jealous() override { delete std::exchange(sibling, nullptr); }
    DVButton2* sibling = nullptr;
};

TEST(Ownership, ChildMayDeleteItsSiblings) {
    FakeBackend backend;
    {
        DVDialog2 dialog;
        DVButton2& before = dialog.make<DVButton2>();
        dialog.make<Jealous>().sibling = &before;
        Jealous& last = dialog.make<Jealous>();
        last.sibling = &dialog.make<DVButton2>();
        delete &last;
    }
    EXPECT_EQ(backend.size(), 0u);
}

TEST(Ownership, ParentWithManyChildrenGoes) {
    FakeBackend backend;
    {
        DVDialog2 dialog;
        for (int i = 0; i < 3000; ++i) {
            dialog.make<DVButton2>();
        }
        EXPECT_EQ(backend.size(), 3001u);
    }
    EXPECT_EQ(backend.size(), 0u);
}

/// A dialog with a layout, a button and an edit, each an object of its own; and the backend.
struct Family {
    static constexpr int Members = 6;

    std::unique_ptr<FakeBackend> backend = std::make_unique<FakeBackend>();
    std::unique_ptr<DVDialog2> dialog = std::make_unique<DVDialog2>();
    std::unique_ptr<DVBoxLayout2> box = std::make_unique<DVBoxLayout2>(dialog.get());
    std::unique_ptr<DVButton2> button = std::make_unique<DVButton2>(dialog.get(), u"OK");
    std::unique_ptr<DVEdit2> edit = std::make_unique<DVEdit2>(dialog.get(), u"text");

    /// Destroys one member; the last takes the factory away and leaves the implementations.
    void lose(int member) {
        const std::function<void()> ways[Members] = {[this] { dialog.reset(); },
                                                     [this] { box.reset(); },
                                                     [this] { button.reset(); },
                                                     [this] { edit.reset(); },
                                                     [this] { backend.reset(); },
                                                     [this] {
                                                         if (backend) {
                                                             backend->loseFactory();
                                                         }
                                                     }};
        ways[member]();
    }
    /// Calls what is left; nothing of it may touch what is gone.
    void use() const {
        if (dialog) {
            dialog->setTitle(u"title");
            EXPECT_EQ(dialog->title(), backend ? u"title" : u"");
            dialog->show();
        }
        if (button) {
            button->setLabel(u"label");
            button->clickEmitter().emit(DVButtonClickEvent2(button.get()));
            EXPECT_TRUE(DVObject::isObjectValid(button.get(), button->identifier()));
        }
        if (edit) {
            edit->editEmitter().emit(DVEditEvent2(edit.get(), u"typed", 0, 0));
            EXPECT_EQ(edit->text(), backend && dialog ? u"typed" : u"");
        }
        if (box && button) {
            box->addWidget(button.get());
        }
    }
};

// All 720 orders.
TEST(Lifetime, AnyOrderOfDestruction) {
    int order[Family::Members];
    std::iota(std::begin(order), std::end(order), 0);
    do {
        Family family;
        int clicks = 0;
        family.button->onClick([&] { ++clicks; });
        const std::string text = testing::PrintToString(order);
        SCOPED_TRACE(text);
        for (const int member : order) {
            family.lose(member);
            family.use();
            if (HasFailure()) {
                return;
            }
        }
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

struct CloseRow {
    const char* name;
    std::function<void(DVDialog2&, FakeBackend&)> act;
};

const CloseRow closeRows[] = {
    {"closed", [](DVDialog2& dialog, FakeBackend&) { dialog.close(); }},
    {"closedTwice",
     [](DVDialog2& dialog, FakeBackend&) {
         dialog.close();
         dialog.close();
     }},
    {"closedAfterTheBackendShutDown",
     [](DVDialog2& dialog, FakeBackend& backend) {
         backend.shutDown();
         dialog.close();
     }},
    {"closedAfterTheFactoryWent",
     [](DVDialog2& dialog, FakeBackend& backend) {
         backend.shutDown();
         backend.loseFactory();
         dialog.close();
     }},
    {"backendShutDown", [](DVDialog2&, FakeBackend& backend) { backend.shutDown(); }},
};

class Close : public testing::TestWithParam<CloseRow> {};

TEST_P(Close, LeavesAnObjectThatAnswersDefaults) {
    FakeBackend backend;
    DVDialog2 dialog;
    DVButton2 button(&dialog, u"OK");
    dialog.setTitle(u"title");
    GetParam().act(dialog, backend);

    EXPECT_FALSE(backend.implements(dialog));
    EXPECT_FALSE(backend.implements(button));
    EXPECT_EQ(dialog.title(), u"");
    EXPECT_EQ(button.label(), u"");
    EXPECT_EQ(button.parent(), nullptr);
    dialog.setTitle(u"again");
    button.setParent(&dialog);
    dialog.showMessage(u"warning", u"title", u"body");
    EXPECT_EQ(dialog.title(), u"");
    EXPECT_TRUE(DVObject::isObjectValid(&dialog, dialog.identifier()));
}

INSTANTIATE_TEST_SUITE_P(Lifetime, Close, testing::ValuesIn(closeRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct HandlerRow {
    const char* name;
    std::function<void(std::unique_ptr<DVDialog2>&, DVButton2*)> act;
    bool buttonStays;
};

const HandlerRow handlerRows[] = {
    {"deletesItsButton", [](auto&, DVButton2* button) { delete button; }, false},
    {"deletesTheDialog", [](auto& dialog, DVButton2*) { dialog.reset(); }, false},
    {"closesTheDialog", [](auto& dialog, DVButton2*) { dialog->close(); }, true},
    {"opensAnotherInItsPlace",
     [](auto& dialog, DVButton2*) {
         dialog = std::make_unique<DVDialog2>();
         dialog->template make<DVButton2>();
     },
     false},
};

class ClickHandler : public testing::TestWithParam<HandlerRow> {};

TEST_P(ClickHandler, MayTakeAwayWhatCallsIt) {
    FakeBackend backend;
    auto dialog = std::make_unique<DVDialog2>();
    auto* button = &dialog->make<DVButton2>();
    const auto identifier = button->identifier();
    int after = 0;
    button->onClick([&] { GetParam().act(dialog, button); });
    button->onClick([&] { ++after; });
    button->clickEmitter().emit(DVButtonClickEvent2(button));

    EXPECT_EQ(DVObject::isObjectValid(button, identifier), GetParam().buttonStays);
    EXPECT_EQ(after, GetParam().buttonStays ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Lifetime, ClickHandler, testing::ValuesIn(handlerRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// A front object with static lifetime, and a backend that ends before it.
struct StaticProgram {
    std::unique_ptr<FakeBackend> backend = std::make_unique<FakeBackend>();
    DVDialog2 dialog;
    DVButton2 button{&dialog, u"OK"};
    ~StaticProgram() {
        backend.reset();
        button.setLabel(u"end");
        dialog.close();
        std::fprintf(stderr, "label at the end: %zu characters\n", button.label().size());
    }
};

TEST(LifetimeDeathTest, StaticObjectsOutliveTheBackend) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            static StaticProgram program;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "label at the end: 0 characters");
}

}  // namespace
