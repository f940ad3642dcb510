#include "FrameReceiver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrameReceiverTest : public RegistryFixture {
protected:
    FrameReceiverTest() : session(registry->open("me", {}, link).session) {}

    const CloseReason* receive(const std::string& frame, std::size_t limit = 1000) {
        FrameReceiver receiver(*registry, session);
        const CloseReason* reason = receiver.begin(frame);
        while (!reason && receiver.pending() > 0)
            reason = receiver.handle(limit);
        bus->deliver();
        return reason;
    }

    NotingLink link;
    const std::shared_ptr<Session> session;
};

TEST_F(FrameReceiverTest, handlesEachNumberOnce) {
    EXPECT_EQ(receive("1,0\x1e.\x1f"
                      "a\x1e.\x1f"
                      "b"),
              nullptr);
    EXPECT_EQ(receive("1,0\x1e.\x1f"
                      "a\x1e.\x1f"
                      "b\x1e.\x1f"
                      "c"),
              nullptr);
    EXPECT_EQ(receive("2,0\x1e.\x1f"
                      "b"),
              nullptr);
    EXPECT_EQ(receive("4,0"), nullptr);
    EXPECT_THAT(programHeard, ElementsAre("/dova2/web/me=a", "/dova2/web/me=b", "/dova2/web/me=c"));
    EXPECT_EQ(session->received(), 3u);
}

TEST_F(FrameReceiverTest, worksAFrameOffInSteps) {
    FrameReceiver receiver(*registry, session);
    const std::string frame =
        "1,0\x1e.\x1f"
        "a\x1e.\x1f"
        "b\x1e.\x1f"
        "c";
    ASSERT_EQ(receiver.begin(frame), nullptr);
    EXPECT_EQ(receiver.handle(0), nullptr);
    EXPECT_EQ(receiver.pending(), 3u);
    receiver.handle(2);
    EXPECT_EQ(receiver.pending(), 1u);
    EXPECT_EQ(session->received(), 2u) << "only what was handled is acknowledged";
}

struct FaultRow {
    const char* name;
    std::string frame;
    const CloseReason* reason;
};

class FrameReceiverFaultTest : public FrameReceiverTest,
                               public testing::WithParamInterface<FaultRow> {};

TEST_P(FrameReceiverFaultTest, isRefusedWithItsReasonAndNothingOfItHandled) {
    EXPECT_EQ(receive(GetParam().frame), GetParam().reason);
    EXPECT_THAT(programHeard, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FrameReceiverFaultTest,
    testing::Values(FaultRow{"malformed", "1,0\x1e.\x1f{}\x1e.", &close_reason::kMalformedFrame},
                    FaultRow{"gap", "2,0\x1e.\x1f{}", &close_reason::kGap},
                    FaultRow{"gapWithoutRecords", "3,0", &close_reason::kGap},
                    FaultRow{"acknowledgesTheFuture", "1,1\x1e.\x1f{}",
                             &close_reason::kFalseAcknowledgement},
                    FaultRow{"foreignChannel", "1,0\x1e/dova2/web/you\x1f{}\x1e.\x1f{}",
                             &close_reason::kChannelNotAllowed}),
    [](const auto& row) { return row.param.name; });

TEST_F(FrameReceiverTest, nothingIsHandledAfterTheSessionsEnd) {
    EXPECT_EQ(receive("1,0\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}\x1e.\x1f"
                      "too late"),
              nullptr);
    EXPECT_THAT(programHeard, ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
}

}  // namespace
}  // namespace DOVA::gateway
