// What belongs to whom: dialogs to what they were opened over, layouts to what they arrange.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/WebFixture.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVPanel2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ParentsTest : public WebFixture {};

/// It was once no part of its parent's life at all, against its promise.
TEST_F(ParentsTest, aChildDialogIsAWindowOfItsOwnAndGoesWithItsParent) {
    const std::function<void(DVDialog2&, std::unique_ptr<DVPanel2>&)> ends[] = {
        [](auto& dialog, auto&) { dialog.close(); }, [](auto&, auto& inner) { inner.reset(); }};
    for (const auto& end : ends) {
        DVDialog2 dialog;
        auto inner = std::make_unique<DVPanel2>(&dialog);
        DVDialog2 child(inner.get());
        DVDialog2 grandchild(&child);
        child.setTitle(u"child");
        EXPECT_EQ(child.parent(), inner.get());
        EXPECT_THAT(inner->children(), ElementsAre());
        show(dialog);
        show(child);
        show(grandchild);
        end(dialog, inner);
        std::string closed;
        for (const std::string& text : client.takeTexts()) {
            closed += text;
        }
        for (const DVDialog2* each : {&child, &grandchild}) {
            EXPECT_THAT(closed, HasSubstr(R"({"command":"close","id":")" +
                                          std::to_string(each->identifier())));
        }
        EXPECT_EQ(child.title(), u"");
        EXPECT_EQ(child.parent(), nullptr);
    }
}

/// Each took the one below it along by a call within a call, until the stack was full.
TEST_F(ParentsTest, dialogsGoTogetherHoweverDeeplyTheyAreNested) {
    std::vector<std::unique_ptr<DVDialog2>> dialogs(20000);
    for (std::size_t level = 0; level < dialogs.size(); ++level) {
        dialogs[level] = std::make_unique<DVDialog2>(level ? dialogs[level - 1].get() : nullptr);
    }
    DVDialog2& last = *dialogs.back();
    EXPECT_TRUE(service().getObject(last.identifier()));
    dialogs.front()->close();
    EXPECT_FALSE(service().getObject(last.identifier()));
}

TEST_F(ParentsTest, aLayoutIsTakenOutWithWhatIsInIt) {
    const std::function<void(DVPanel2&, DVBoxLayout2&, DVBoxLayout2&)> ways[] = {
        [](auto&, auto& outer, auto& nested) { outer.removeWidget(&nested); },
        [](auto&, auto&, auto& nested) { nested.setParent(nullptr); },
        [](auto& holder, auto&, auto&) { holder.setLayout(nullptr); },
        [](auto& holder, auto&, auto&) {
            holder.setLayout(&holder.template make<DVBoxLayout2>());
        }};
    for (const auto& takeOut : ways) {
        DVPanel2 holder;
        DVBoxLayout2 outer;
        DVBoxLayout2 nested;
        DVButton2 button;
        holder.setLayout(&outer);
        outer.addWidget(&nested);
        nested.addWidget(&button);
        EXPECT_EQ(button.parent(), &holder);
        takeOut(holder, outer, nested);
        EXPECT_EQ(button.parent(), nullptr);
        EXPECT_THAT(nested.children(), ElementsAre(&button));
        outer.addWidget(&nested);
        holder.setLayout(&outer);
        EXPECT_EQ(button.parent(), &holder) << "and may come back";
    }
}

}  // namespace
}  // namespace DOVA::test
