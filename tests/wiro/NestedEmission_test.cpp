// Emissions within emissions, past the places where their book-keeping changes.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

class NestedEmission : public testing::TestWithParam<int> {};

TEST_P(NestedEmission, OneEmitterReachesEveryDepth) {
    Event emitter;
    int calls = 0;
    WIRO::connect(emitter, [&](int left) {
        ++calls;
        if (left > 1) {
            emitter.emit(left - 1);
        }
    });
    emitter.emit(GetParam());
    EXPECT_EQ(calls, GetParam());
}

/// Emitters one within the handler of the other; the innermost handler does something to them all.
class Tower {
public:
    explicit Tower(int depth) : m_floors(depth) {
        for (int i = 0; i < depth; ++i) {
            add(i);
        }
    }
    void run() { m_floors[0].emitter->emit(0); }

    std::function<void(Tower&)> top;

    void destroyEmitters() {
        for (Floor& floor : m_floors) {
            floor.emitter.reset();
        }
    }
    void disconnect() {
        for (Floor& floor : m_floors) {
            floor.subscription.disconnect();
        }
    }
    int alive() const {
        int count = 0;
        for (const Floor& floor : m_floors) {
            count += floor.closure.expired() ? 0 : 1;
        }
        return count;
    }

private:
    struct Floor {
        std::unique_ptr<Event> emitter = std::make_unique<Event>();
        WIRO::Subscription subscription;
        std::weak_ptr<int> closure;
    };

    void add(int index) {
        auto life = std::make_shared<int>(index);
        m_floors[index].closure = life;
        m_floors[index].subscription =
            WIRO::connect(*m_floors[index].emitter, [this, life = std::move(life)] {
                const int next = *life + 1;
                if (next < static_cast<int>(m_floors.size())) {
                    m_floors[next].emitter->emit(next);
                } else {
                    top(*this);
                }
                EXPECT_EQ(*life, next - 1);  // a member of the closure, read after all that
            });
    }

    std::vector<Floor> m_floors;
};

TEST_P(NestedEmission, ClosuresOfEveryDepthOutliveTheirEmitters) {
    Tower tower(GetParam());
    tower.top = [](Tower& all) {
        all.destroyEmitters();
        EXPECT_EQ(all.alive(), GetParam());
    };
    tower.run();
    EXPECT_EQ(tower.alive(), 0);
}

TEST_P(NestedEmission, ClosuresOfEveryDepthOutliveTheirConnections) {
    Tower tower(GetParam());
    tower.top = [](Tower& all) {
        all.disconnect();
        EXPECT_EQ(all.alive(), GetParam());
    };
    tower.run();
    EXPECT_EQ(tower.alive(), 0);
}

TEST_P(NestedEmission, AnExceptionLeavesNothingPinned) {
    Tower tower(GetParam());
    tower.top = [](Tower& all) {
        all.disconnect();
        throw std::runtime_error("top");
    };
    EXPECT_THROW(tower.run(), std::runtime_error);
    EXPECT_EQ(tower.alive(), 0);
}

INSTANTIATE_TEST_SUITE_P(Depth, NestedEmission,
                         testing::Values(1, 2, 15, 16, 17, 79, 80, 81, 144, 145, 300),
                         testing::PrintToStringParamName());

}  // namespace
