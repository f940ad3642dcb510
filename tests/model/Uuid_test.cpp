#include "model/Uuid.h"

#include <gmock/gmock.h>

#include <future>
#include <set>

namespace {

using pf::zero::Uuid;

TEST(Uuid, IsARandomOneOfVersionFourAndDiffersBetweenCallsAndThreads) {
    const auto make = [] {
        std::set<Uuid> uuids;
        while (uuids.size() < 2000 && uuids.insert(Uuid::generate()).second) {
        }
        return uuids;
    };
    std::future<std::set<Uuid>> others = std::async(std::launch::async, make);
    std::set<Uuid> all = make();
    all.merge(others.get());
    EXPECT_EQ(all.size(), 4000U);
    const auto hasForm = testing::MatchesRegex(
        "[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}");
    for (const Uuid& uuid : all) {
        ASSERT_THAT(uuid.toString(), hasForm);
    }
}

TEST(Uuid, TextHoldsTheBytesInOrder) {
    const Uuid uuid(Uuid::Bytes{0x00, 0x01, 0x02, 0x03, 0x10, 0x20, 0x40, 0x80, 0x9f, 0xff, 0xa0,
                                0xb1, 0xc2, 0xd3, 0xe4, 0xf5});
    EXPECT_EQ(uuid.toU16String(), u"00010203-1020-4080-9fff-a0b1c2d3e4f5");
}

}  // namespace
