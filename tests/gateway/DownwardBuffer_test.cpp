#include "DownwardBuffer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FrameCodec.h"

namespace DOVA::gateway {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(DownwardBufferTest, joinsWhatWaitsAndNumbersOn) {
    DownwardBuffer buffer(m_limits);
    push(buffer, {"a", "b"});
    EXPECT_THAT(next(buffer), ElementsAre("1=a", "2=b"));
    EXPECT_THAT(next(buffer), IsEmpty());
    push(buffer, {"c"});
    EXPECT_THAT(next(buffer), ElementsAre("3=c"));
    EXPECT_EQ(buffer.nextNumber(), 4u);
}

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

TEST_F(DownwardBufferTest, acknowledgedTextsMakeRoom) {
    DownwardBuffer buffer(m_limits);
    for (int i = 0; i < 10; ++i)
        push(buffer, {"x"});
    EXPECT_FALSE(buffer.push(".", "one too many"));
    next(buffer);
    ASSERT_TRUE(buffer.acknowledge(10));
    EXPECT_EQ(buffer.bytes(), 0u);
    push(buffer, {"y"});
    EXPECT_THAT(next(buffer), ElementsAre("11=y"));
}

TEST_F(DownwardBufferTest, bytesAreBounded) {
    DownwardBuffer buffer(m_limits);
    EXPECT_TRUE(buffer.push(".", std::string(997, 'x')));
    EXPECT_FALSE(buffer.push(".", ""));
    EXPECT_FALSE(DownwardBuffer(m_limits).push(".", std::string(998, 'x')));
}

TEST_F(DownwardBufferTest, onlyWhatWasSentCanBeAcknowledged) {
    DownwardBuffer buffer(m_limits);
    push(buffer, {"a", "b"});
    EXPECT_FALSE(buffer.acknowledge(1));
    next(buffer);
    EXPECT_TRUE(buffer.acknowledge(2));
    EXPECT_TRUE(buffer.acknowledge(1)) << "an older acknowledgement is merely late";
    EXPECT_FALSE(buffer.acknowledge(3));
}

/// The same two frames of three texts each, resumed after each number there is.
TEST_F(DownwardBufferTest, resumesAfterEveryNumber) {
    const std::vector<std::string> all = {"1=a", "2=b", "3=c", "4=d", "5=e", "6=f", "7=g"};
    for (std::uint64_t received = 0; received <= 6; ++received) {
        DownwardBuffer buffer(m_limits);
        push(buffer, {"a", "b", "c"});
        next(buffer);
        push(buffer, {"d", "e", "f"});
        next(buffer);
        push(buffer, {"g"});
        ASSERT_TRUE(buffer.resume(received));
        std::vector<std::string> again;
        for (auto some = next(buffer); !some.empty(); some = next(buffer))
            again.insert(again.end(), some.begin(), some.end());
        EXPECT_EQ(again,
                  std::vector<std::string>(all.begin() + static_cast<long>(received), all.end()))
            << received;
        ASSERT_TRUE(buffer.acknowledge(7));
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
    EXPECT_FALSE(buffer.resume(4)) << "never sent";
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
    ASSERT_TRUE(buffer.acknowledge(0));
    EXPECT_EQ(writing->records, before);
    EXPECT_THAT(next(buffer), ElementsAre("1=a", "2=b"));
    ASSERT_TRUE(buffer.resume(1));
    EXPECT_EQ(writing->records, before);
    EXPECT_THAT(next(buffer), ElementsAre("2=b"));
    EXPECT_THAT(next(buffer), ElementsAre("3=c"));
}

}  // namespace
}  // namespace DOVA::gateway
