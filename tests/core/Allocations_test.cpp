// How often the heap is asked, which no machine's load changes.

#include <cstdlib>
#include <functional>

#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVEdit2.h"

namespace {

std::size_t s_allocations = 0;

}  // namespace

// Qt asks malloc, and so does operator new.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* malloc(std::size_t size) {
    ++s_allocations;
    return __libc_malloc(size);
}

namespace DOVA::test {
namespace {

class AllocationsTest : public WebFixture {
protected:
    static std::size_t countIn(const std::function<void()>& act) {
        const std::size_t before = s_allocations;
        act();
        return s_allocations - before;
    }

    /// Of one write among many, for queues that grow now and then.
    static std::size_t perWrite(const std::function<void(const std::u16string& text)>& write) {
        const std::u16string texts[] = {u"A label of a usual length", u"And the other one of them"};
        constexpr std::size_t count = 1000;
        write(texts[0]);
        const std::size_t all = countIn([&] {
            for (std::size_t i = 1; i <= count; ++i) {
                write(texts[i % 2]);
            }
        });
        return (all + count / 2) / count;
    }
};

TEST_F(AllocationsTest, aWriteReachesTheBusInAFew) {
    DVDialog2 window;
    DVButton2 button(&window);
    DVEdit2 edit(&window);
    show(window);
    EXPECT_LE(perWrite([&](const auto& text) { button.setLabel(text); }), 2u);
    EXPECT_LE(perWrite([&](const auto& text) { edit.setText(text); }), 2u);
    EXPECT_LE(perWrite([&](const auto& text) { button.setToolTip(text); }), 2u);
    EXPECT_LE(perWrite([&](const auto& text) { button.setEnabled(text[0] == u'A'); }), 2u);
    EXPECT_LE(perWrite([&](const auto& text) { window.setTitle(text); }), 2u);
    EXPECT_EQ(client.takeTexts().size(), 5005u);
}

}  // namespace
}  // namespace DOVA::test
