#include "toolkit/DVObject.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "toolkit/DVButton2.h"

namespace {

using DOVA::DVObject;

class Plain : public DVObject {
public:
    Plain() = default;
    explicit Plain(Identifier identifier) : DVObject(identifier) {}
    using DVObject::leaveTheLiving;
};

TEST(Identifier, IsUniqueAmongTheLiving) {
    std::vector<std::unique_ptr<Plain>> objects;
    std::set<DVObject::Identifier> seen;
    for (int i = 0; i < 2000; ++i) {
        objects.push_back(std::make_unique<Plain>());
        const auto identifier = objects.back()->identifier();
        EXPECT_NE(identifier, 0u);
        EXPECT_NE(identifier, 0xFFFFFFFFu);
        seen.insert(identifier);
    }
    EXPECT_EQ(seen.size(), objects.size());
}

TEST(Identifier, IsUniqueAcrossThreads) {
    constexpr int count = 500;
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
    std::set<DVObject::Identifier> seen;
    for (const auto& object : objects) {
        seen.insert(object->identifier());
        EXPECT_TRUE(DVObject::isObjectValid(object.get(), object->identifier()));
    }
    EXPECT_EQ(seen.size(), objects.size());
}

TEST(Identifier, GivenOneIsPassedOver) {
    const DVObject::Identifier next = Plain().identifier() + 1;
    const Plain given(next);
    const Plain free;
    EXPECT_EQ(given.identifier(), next);
    EXPECT_NE(free.identifier(), next);
    EXPECT_TRUE(DVObject::isObjectValid(&given, next));
}

TEST(Identifier, OfTwoWithTheSameTheFirstIsValid) {
    Plain first;
    {
        const Plain second(first.identifier());
        EXPECT_FALSE(DVObject::isObjectValid(&second, first.identifier()));
        EXPECT_TRUE(DVObject::isObjectValid(&first, first.identifier()));
    }
    EXPECT_TRUE(DVObject::isObjectValid(&first, first.identifier()));
}

struct ValidityRow {
    const char* name;
    bool samePointer;
    int identifierOffset;
    bool left;  // the object left the living before
    bool valid;
};

class Validity : public testing::TestWithParam<ValidityRow> {};

TEST_P(Validity, NeedsPointerAndIdentifierOfALivingObject) {
    const auto& row = GetParam();
    Plain object;
    const Plain other(object.identifier() + 1000000);
    if (row.left) {
        object.leaveTheLiving();
        object.leaveTheLiving();
    }
    const DVObject* pointer = row.samePointer ? &object : nullptr;
    EXPECT_EQ(DVObject::isObjectValid(pointer, object.identifier() + row.identifierOffset),
              row.valid);
}

INSTANTIATE_TEST_SUITE_P(
    DVObject, Validity,
    testing::Values(ValidityRow{"itself", true, 0, false, true},
                    ValidityRow{"noPointer", false, 0, false, false},
                    ValidityRow{"othersIdentifier", true, 1000000, false, false},
                    ValidityRow{"nobodysIdentifier", true, 500000, false, false},
                    ValidityRow{"afterLeaving", true, 0, true, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Validity, EndsWithTheObject) {
    auto object = std::make_unique<DOVA::DVButton2>();
    const DVObject* pointer = object.get();
    const auto identifier = object->identifier();
    EXPECT_TRUE(DVObject::isObjectValid(pointer, identifier));
    object.reset();
    EXPECT_FALSE(DVObject::isObjectValid(pointer, identifier));
}

// Whoever found an object valid under the lock may use it until the lock is given back, on whatever
// thread the object's owner destroys it.
TEST(Validity, HoldsAsLongAsTheLockIsHeld) {
    auto object = std::make_unique<DOVA::DVButton2>();
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
