#include "toolkit/DVObject.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace {

using DOVA::DVObject;

class Plain : public DVObject {
public:
    Plain() = default;
    explicit Plain(Identifier identifier) : DVObject(identifier) {}
    using DVObject::leaveTheLiving;
};

TEST(Identifier, IsUniqueAcrossThreads) {
    constexpr int count = 10000;
    std::vector<std::unique_ptr<Plain>> objects(4 * count);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&objects, t] {
            for (int i = 0; i < count; ++i) {
                objects[t * count + i] = std::make_unique<Plain>();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::set<DVObject::Identifier> seen{0};
    for (const auto& object : objects) {
        EXPECT_TRUE(seen.insert(object->identifier()).second);
        EXPECT_TRUE(DVObject::isObjectValid(object.get(), object->identifier()));
    }
}

TEST(Identifier, GivenOneIsPassedOverAndStaysWithTheFirst) {
    const DVObject::Identifier next = Plain().identifier() + 1;
    const Plain given(next);
    EXPECT_NE(Plain().identifier(), next);
    EXPECT_FALSE(DVObject::isObjectValid(std::make_unique<Plain>(next).get(), next));
    EXPECT_TRUE(DVObject::isObjectValid(&given, next));
}

TEST(Validity, NeedsPointerAndIdentifierOfALivingObject) {
    Plain object;
    const auto identifier = object.identifier();
    const Plain other(identifier + 1000000);
    EXPECT_TRUE(DVObject::isObjectValid(&object, identifier));
    EXPECT_FALSE(DVObject::isObjectValid(nullptr, identifier));
    EXPECT_FALSE(DVObject::isObjectValid(&object, other.identifier()));
    EXPECT_FALSE(DVObject::isObjectValid(&object, identifier + 500000));
    object.leaveTheLiving();
    EXPECT_FALSE(DVObject::isObjectValid(&object, identifier));
}

// Whoever found an object valid under the lock may use it until the lock is given back, on whatever
// thread the object's owner destroys it.
TEST(Validity, HoldsAsLongAsTheLockIsHeld) {
    auto object = std::make_unique<Plain>();
    const DVObject* pointer = object.get();
    const auto identifier = object->identifier();
    std::unique_lock lock(DVObject::m_lock);
    std::unique_lock again(DVObject::m_lock);
    std::promise<void> started;
    std::future<void> destroyed = std::async(std::launch::async, [&] {
        started.set_value();
        object.reset();
    });
    started.get_future().wait();
    for (int turn = 0; turn < 500; ++turn) {
        std::this_thread::yield();
        ASSERT_TRUE(DVObject::isObjectValid(pointer, identifier));
    }
    again.unlock();
    lock.unlock();
    destroyed.wait();
    EXPECT_FALSE(DVObject::isObjectValid(pointer, identifier));
}

}  // namespace
