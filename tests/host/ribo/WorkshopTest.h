#pragma once

#include <gtest/gtest.h>

#include "Crate.h"
#include "Lamp.h"
#include "Outcome.h"
#include "Room.h"
#include "Workshop.h"

namespace host::test {

/// A fresh namespace "workshop", of which nothing may be left afterwards.
class WorkshopTest : public testing::Test {
protected:
    WorkshopTest() { enter(); }

    ~WorkshopTest() override {
        leave();
        EXPECT_EQ(Workshop::s_count, 0);
        EXPECT_EQ(Room::s_count, 0);
        EXPECT_EQ(CrateClass::s_count, 0);
        EXPECT_EQ(Crate::s_count, 0);
        EXPECT_EQ(Lamp::s_count, 0);
    }

    static void enter() {
        Workshop::s_listed = 0;
        CrateClass::s_described = 0;
        ribo::COSNamespace::addNamespace(describe<Workshop>());
    }

    static ribo::COSNamespace* workshop() {
        return ribo::COSNamespace::getNamespace(interned("workshop"));
    }

    static void leave() {
        if (workshop() != nullptr) {
            workshop()->cleanUp(COSGetPublicClient());
        }
    }

    static const ribo::ClassMembers& members(const char* name) {
        return ribo::COSNamespace::getClass(interned(name))->getMembers();
    }

    static std::string construct(const std::vector<const kaArray*>& arguments) {
        return call(members("workshop.Crate").getConstructors(), arguments);
    }

    /// Calls a method of the first argument's class.
    static std::string invoke(const char* method, const std::vector<const kaArray*>& arguments) {
        const auto& members = ribo::Instance::of(arguments[0])->getClass()->getMembers();
        return call(*members.findMethod(interned(method)), arguments);
    }
};

}  // namespace host::test
