#include "DownwardBuffer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "FrameCodec.h"

namespace DOVA::session {
namespace {

class DownwardBufferTest : public testing::Test {
protected:
    /// Whether the buffer takes each of these texts.
    bool push(std::initializer_list<std::string> texts) {
        bool all = true;
        for (const std::string& text : texts) {
            all = buffer.push(".", text, 0) && all;
        }
        return all;
    }

    /// "number=text " of each record of the next chunk.
    std::string next() {
        std::string all;
        const auto chunk = buffer.next();
        std::string_view rest = chunk ? chunk->records : std::string_view();
        for (std::uint64_t number = chunk ? chunk->first : 0; !rest.empty(); ++number) {
            all +=
                std::to_string(number) + "=" + std::string(FrameCodec::takeRecord(rest).text) + " ";
        }
        return all;
    }

    std::string everything() {
        std::string all;
        while (buffer.hasUnsent()) {
            all += next();
        }
        return all;
    }

    static SessionLimits limits() {
        SessionLimits limits;
        limits.downwardBytes = 1000;
        limits.downwardRecords = 10;
        limits.joinedFrameBytes = 100;
        return limits;
    }

    DownwardBuffer buffer{limits()};
};

TEST_F(DownwardBufferTest, aLongTextTravelsAlone) {
    const std::string longText(200, 'x');
    EXPECT_TRUE(push({"a", longText, "b"}));
    EXPECT_TRUE(buffer.hasFullChunk());
    EXPECT_EQ(next(), "1=a ");
    EXPECT_EQ(next(), "2=" + longText + " ");
    EXPECT_FALSE(buffer.hasFullChunk());
    EXPECT_EQ(next(), "3=b ");
}

TEST_F(DownwardBufferTest, isBoundedUntilTextsAreAcknowledged) {
    EXPECT_TRUE(push({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_FALSE(push({"one too many"}));
    EXPECT_FALSE(buffer.acknowledge(1)) << "never sent";
    next();
    EXPECT_FALSE(buffer.acknowledge(11)) << "never sent";
    ASSERT_TRUE(buffer.resume(4));
    EXPECT_TRUE(push({"11", "12", "13", "14"})) << "in the place of those that were resumed after";
    EXPECT_FALSE(push({"one too many"}));
    EXPECT_EQ(everything(), "5=5 6=6 7=7 8=8 9=9 10=10 11=11 12=12 13=13 14=14 ");
    ASSERT_TRUE(buffer.acknowledge(14));
    EXPECT_TRUE(buffer.acknowledge(1)) << "an older acknowledgement is merely late";
    EXPECT_FALSE(buffer.resume(13)) << "acknowledged and gone";
    EXPECT_FALSE(push({std::string(998, 'x')}));
    EXPECT_TRUE(push({std::string(997, 'x')}));
    EXPECT_FALSE(push({""})) << "the bytes are used up";
}

/// Two frames and a text that waits, resumed after each number there is. A former connection may
/// still be writing a chunk: it must stay as it was.
TEST_F(DownwardBufferTest, resumesAfterEveryNumber) {
    EXPECT_TRUE(push({"a", "b"}));
    const auto writing = buffer.next();
    const std::string before = writing->records;
    EXPECT_TRUE(push({"c", "d"}));
    EXPECT_EQ(next(), "3=c 4=d ");
    EXPECT_TRUE(push({"e"}));
    EXPECT_FALSE(buffer.resume(5)) << "never sent";
    for (std::uint64_t received = 0; received <= 4; ++received) {
        ASSERT_TRUE(buffer.resume(received));
        EXPECT_FALSE(buffer.acknowledge(received + 1)) << "not sent again yet";
        EXPECT_EQ(everything(), std::string("1=a 2=b 3=c 4=d 5=e ").substr(received * 4));
        EXPECT_EQ(buffer.bytes(), (5 - received) * 4);
        EXPECT_EQ(writing->records, before);
    }
}

}  // namespace
}  // namespace DOVA::session
