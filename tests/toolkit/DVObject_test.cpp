#include "toolkit/DVObject.h"

#include <gtest/gtest.h>

#include <algorithm>
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
    std::vector<std::unique_ptr<Plain>> objects[4];
    std::vector<std::future<void>> threads;
    for (auto& own : objects) {
        threads.push_back(std::async(std::launch::async, [&own] {
            std::generate_n(std::back_inserter(own), 10000, std::make_unique<Plain>);
        }));
    }
    std::set<DVObject::Identifier> seen{0};
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].wait();
        for (const auto& object : objects[i]) {
            EXPECT_TRUE(seen.insert(object->identifier()).second);
            EXPECT_TRUE(DVObject::isObjectValid(object.get(), object->identifier()));
        }
    }
}

TEST(Identifier, GivenOneIsPassedOverAndStaysWithTheFirst) {
    const DVObject::Identifier next = Plain().identifier() + 1;
    const Plain given(next);
    EXPECT_NE(Plain().identifier(), next);
    EXPECT_FALSE(DVObject::isObjectValid(std::make_unique<Plain>(next).get(), next));
    EXPECT_TRUE(DVObject::isObjectValid(&given, next));
    EXPECT_FALSE(DVObject::isObjectValid(nullptr, next));
    EXPECT_FALSE(DVObject::isObjectValid(&given, next + 500000));
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
        object->leaveTheLiving();
        EXPECT_FALSE(DVObject::isObjectValid(pointer, identifier));
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
