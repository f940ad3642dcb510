// Emissions within emissions, past the places where their book-keeping changes.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

/// One of many emitters, each within the handler of the one before.
struct Floor {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    WIRO::Subscription subscription;
    std::weak_ptr<std::size_t> closure;
};

class NestedEmission : public testing::TestWithParam<int> {};

TEST_P(NestedEmission, ClosuresOfEveryDepthOutliveTheirEnds) {
    void (*const ends[])(Floor&) = {[](Floor& floor) { floor.emitter.reset(); },
                                    [](Floor& floor) { floor.subscription.disconnect(); }};
    for (const auto end : ends) {
        std::vector<Floor> tower(GetParam());
        const auto alive = [&] {
            return std::count_if(tower.begin(), tower.end(),
                                 [](const Floor& floor) { return !floor.closure.expired(); });
        };
        for (std::size_t i = 0; i < tower.size(); ++i) {
            const auto next = std::make_shared<std::size_t>(i + 1);
            tower[i].closure = next;
            tower[i].subscription = WIRO::connect(*tower[i].emitter, [&, next] {
                if (*next < tower.size()) {
                    return tower[*next].emitter->emit(1);
                }
                std::for_each(tower.begin(), tower.end(), end);
                EXPECT_EQ(alive(), GetParam());
                throw std::runtime_error("top");
            });
        }
        EXPECT_THROW(tower[0].emitter->emit(1), std::runtime_error);
        EXPECT_EQ(alive(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Depth, NestedEmission, testing::Values(1, 16, 17, 80, 81, 145, 300),
                         testing::PrintToStringParamName());

}  // namespace
