#include "model/Uuid.h"

#include <gmock/gmock.h>

#include <thread>
#include <unordered_set>
#include <vector>

namespace {

using pf::zero::Uuid;

TEST(Uuid, IsARandomOneOfVersionFour) {
    const auto hasForm = testing::MatchesRegex(
        "[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}");
    for (int count = 0; count < 1000; ++count) {
        ASSERT_THAT(Uuid::generate().toString(), hasForm);
    }
}

TEST(Uuid, DiffersBetweenCallsAndThreads) {
    std::vector<std::vector<Uuid>> made(4, std::vector<Uuid>(5000));
    std::vector<std::thread> threads;
    for (auto& mine : made) {
        threads.emplace_back([&mine] {
            for (Uuid& uuid : mine) {
                uuid = Uuid::generate();
            }
        });
    }
    std::unordered_set<Uuid> all;
    for (std::size_t index = 0; index < threads.size(); ++index) {
        threads[index].join();
        all.insert(made[index].begin(), made[index].end());
    }
    EXPECT_EQ(all.size(), 20000U);
}

TEST(Uuid, TextHoldsTheBytesInOrder) {
    const Uuid uuid(Uuid::Bytes{0x00, 0x01, 0x02, 0x03, 0x10, 0x20, 0x40, 0x80, 0x9f, 0xff, 0xa0,
                                0xb1, 0xc2, 0xd3, 0xe4, 0xf5});
    EXPECT_EQ(uuid.toString(), "00010203-1020-4080-9fff-a0b1c2d3e4f5");
    EXPECT_EQ(uuid.toU16String(), u"00010203-1020-4080-9fff-a0b1c2d3e4f5");
    EXPECT_EQ(Uuid().toString(), "00000000-0000-0000-0000-000000000000");
    EXPECT_LT(Uuid(), uuid);
}

}  // namespace
