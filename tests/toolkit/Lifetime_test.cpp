// Who owns whom, and every order in which front objects, parents and backend may go.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <utility>

#include "FakeBackend.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"

namespace {

using namespace DOVA;

/// A child that takes its sibling along.
struct Jealous : DVButton2 {
    using DVButton2::DVButton2;
    ~Jealous() override { delete std::exchange(sibling, nullptr); }
    DVButton2* sibling = nullptr;
};

TEST(Ownership, MadeChildrenGoWithTheirParentOrEarlier) {
    FakeBackend backend;
    {
        DVDialog2 dialog;
        dialog.make<DVBoxLayout2>(Direction::LeftToRight).make<DVButton2>(u"OK");
        delete &dialog.make<DVEdit2>();
        EXPECT_EQ(backend.log, "+Dialog+Box+Button+Edit-Edit");
        auto& before = dialog.make<DVButton2>();
        dialog.make<Jealous>().sibling = &before;
        auto& last = dialog.make<Jealous>();
        last.sibling = &dialog.make<DVButton2>();
        delete &last;
        backend.log.clear();
        const auto identifier = dialog.identifier();
        WIRO::connect(backend.factory()->destroy, [&, identifier] {
            EXPECT_FALSE(DVObject::isObjectValid(&dialog, identifier)) << "half destroyed";
        });
    }
    // The window goes as a whole, not piece by piece before the user's eyes.
    EXPECT_EQ(backend.log, "-Dialog-Box-Button-Button-Button");
}

/// A dialog with a layout, a button and an edit, each an object of its own; and the backend.
struct Family {
    std::unique_ptr<FakeBackend> backend = std::make_unique<FakeBackend>();
    std::unique_ptr<DVDialog2> dialog = std::make_unique<DVDialog2>();
    std::unique_ptr<DVBoxLayout2> box = std::make_unique<DVBoxLayout2>(dialog.get());
    std::unique_ptr<DVButton2> button = std::make_unique<DVButton2>(dialog.get(), u"OK");
    std::unique_ptr<DVEdit2> edit = std::make_unique<DVEdit2>(dialog.get(), u"text");
    bool shown = true;  // what is below the dialog goes from the display with it

    /// Calls what is left; nothing of it may touch what is gone.
    void use() const {
        const bool implemented = backend && dialog && shown;
        if (dialog) {
            dialog->setTitle(u"title");
            EXPECT_EQ(dialog->title(), implemented ? u"title" : u"");
            EXPECT_TRUE(DVObject::isObjectValid(dialog.get(), dialog->identifier()));
        }
        if (button) {
            button->clickEmitter().emit(DVButtonClickEvent2(button.get()));
            button->setParent(dialog.get());
            EXPECT_EQ(button->label(), implemented ? u"OK" : u"");
            EXPECT_EQ(button->parent(), implemented ? dialog.get() : nullptr);
        }
        if (edit) {
            edit->editEmitter().emit(DVEditEvent2(edit.get(), u"typed", 0, 0));
            EXPECT_EQ(edit->text(), implemented ? u"typed" : u"");
        }
        if (box && button) {
            box->addWidget(button.get());
        }
    }
};

void (*const losses[])(Family&) = {
    [](Family& family) { family.dialog.reset(); },
    [](Family& family) { family.box.reset(); },
    [](Family& family) { family.button.reset(); },
    [](Family& family) { family.edit.reset(); },
    [](Family& family) { family.backend.reset(); },
    [](Family& family) {
        if (family.backend) {
            family.backend->loseFactory();
        }
    },
    [](Family& family) {
        if (family.dialog) {
            family.dialog->close();
            family.shown = false;
        }
    },
};

// All 5040 orders.
TEST(Lifetime, AnyOrderOfDestruction) {
    int order[std::size(losses)];
    std::iota(std::begin(order), std::end(order), 0);
    do {
        SCOPED_TRACE(testing::PrintToString(order));
        Family family;
        for (const int loss : order) {
            losses[loss](family);
            family.use();
            ASSERT_FALSE(HasFailure());
        }
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST(LifetimeDeathTest, FrontObjectsOutliveTheLibrarysOwnState) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            static std::unique_ptr<Family> last;  // made first, so that it ends last
            last = std::make_unique<Family>();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
