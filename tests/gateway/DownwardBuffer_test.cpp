#include "DownwardBuffer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FrameCodec.h"

namespace DOVA::gateway {
namespace {

using testing::ElementsAre;

class DownwardBufferTest : public testing::Test {
protected:
    DownwardBufferTest() {
        m_limits.downwardBytes = 1000;
        m_limits.downwardRecords = 10;
        m_limits.joinedFrameBytes = 100;
    }

    void push(DownwardBuffer& buffer, std::initializer_list<const char*> texts) {
        for (const char* const text : texts)
            ASSERT_TRUE(buffer.push(".", text));
    }

    /// "number=text" of each record of the next chunk.
    std::vector<std::string> next(DownwardBuffer& buffer) {
        std::vector<std::string> all;
        const auto chunk = buffer.next();
        if (!chunk)
            return all;
        std::string_view rest = chunk->records;
        for (std::uint64_t number = chunk->first; !rest.empty(); ++number)
            all.push_back(std::to_string(number) + "=" +
                          std::string(FrameCodec::takeRecord(rest).text));
        EXPECT_EQ(all.size(), chunk->count);
        return all;
    }

    GatewayLimits m_limits;
};

TEST_F(DownwardBufferTest, aLongTextTravelsAlone) {
    DownwardBuffer buffer(m_limits);
    const std::string longText(200, 'x');
    push(buffer, {"a", longText.c_str(), "b"});
    EXPECT_TRUE(buffer.hasFullChunk());
    EXPECT_THAT(next(buffer), ElementsAre("1=a"));
    EXPECT_THAT(next(buffer), ElementsAre("2=" + longText));
    EXPECT_FALSE(buffer.hasFullChunk());
    EXPECT_THAT(next(buffer), ElementsAre("3=b"));
}

TEST_F(DownwardBufferTest, isBoundedUntilTextsAreAcknowledged) {
    DownwardBuffer buffer(m_limits);
    for (int i = 0; i < 10; ++i)
        push(buffer, {"x"});
    EXPECT_FALSE(buffer.push(".", "one too many"));
    EXPECT_FALSE(buffer.acknowledge(1)) << "never sent";
    next(buffer);
    EXPECT_FALSE(buffer.acknowledge(11)) << "never sent";
    ASSERT_TRUE(buffer.acknowledge(10));
    EXPECT_TRUE(buffer.acknowledge(1)) << "an older acknowledgement is merely late";
    EXPECT_TRUE(buffer.push(".", std::string(997, 'x')));
    EXPECT_FALSE(buffer.push(".", "")) << "the bytes are used up";
    EXPECT_THAT(next(buffer), ElementsAre("11=" + std::string(997, 'x')));
}

/// Two frames and a text that waits, resumed after each number there is.
TEST_F(DownwardBufferTest, resumesAfterEveryNumber) {
    for (std::uint64_t received = 0; received <= 4; ++received) {
        DownwardBuffer buffer(m_limits);
        for (const auto& texts : {"ab", "cd"}) {
            push(buffer, {std::string(texts, 1).c_str(), texts + 1});
            next(buffer);
        }
        push(buffer, {"e"});
        ASSERT_TRUE(buffer.resume(received));
        std::string again;
        for (auto some = next(buffer); !some.empty(); some = next(buffer))
            for (const std::string& record : some)
                again += record + " ";
        EXPECT_EQ(again, std::string("1=a 2=b 3=c 4=d 5=e ").substr(received * 4));
        ASSERT_TRUE(buffer.acknowledge(5));
        EXPECT_EQ(buffer.bytes(), 0u);
    }
}

TEST_F(DownwardBufferTest, cannotResumeOutsideWhatItKeeps) {
    DownwardBuffer buffer(m_limits);
    push(buffer, {"a", "b", "c"});
    EXPECT_FALSE(buffer.resume(1)) << "never sent";
    next(buffer);
    buffer.acknowledge(2);
    EXPECT_FALSE(buffer.resume(1)) << "acknowledged and gone";
    EXPECT_TRUE(buffer.resume(2));
    EXPECT_FALSE(buffer.acknowledge(3)) << "not sent again yet";
}

/// A former connection may still be writing the chunk: it must stay as it was.
TEST_F(DownwardBufferTest, aChunkThatWasHandedOutNeverChanges) {
    DownwardBuffer buffer(m_limits);
    push(buffer, {"a", "b"});
    const auto writing = buffer.next();
    const std::string before = writing->records;
    ASSERT_TRUE(buffer.resume(0));
    push(buffer, {"c"});
    ASSERT_TRUE(buffer.resume(0));
    EXPECT_THAT(next(buffer), ElementsAre("1=a", "2=b"));
    ASSERT_TRUE(buffer.resume(1));
    EXPECT_EQ(writing->records, before);
}

}  // namespace
}  // namespace DOVA::gateway
