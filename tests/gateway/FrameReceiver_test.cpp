#include "FrameReceiver.h"

#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

using testing::ElementsAre;

class FrameReceiverTest : public RegistryFixture {
protected:
    NotingLink link;
    const std::shared_ptr<Session> session = registry->open("me", {}, link).session;
    FrameReceiver receiver{*registry, session};
};

TEST_F(FrameReceiverTest, worksAFrameOffInSteps) {
    const std::string frame = "1,0\x1e.\x1fx\x1e.\x1fy\x1e.\x1fz";
    ASSERT_EQ(receiver.begin(frame), nullptr);
    EXPECT_EQ(receiver.handle(0), nullptr);
    EXPECT_EQ(receiver.pending(), 3u);
    receiver.handle(2);
    EXPECT_EQ(receiver.pending(), 1u);
    EXPECT_EQ(session->received(), 2u) << "only what was handled is acknowledged";
}

TEST_F(FrameReceiverTest, nothingOfAFaultyFrameIsHandled) {
    for (const auto& [frame, reason] :
         {std::pair{"1,0\x1e.\x1f{}\x1e.", &close_reason::kMalformedFrame},
          std::pair{"2,0\x1e.\x1f{}", &close_reason::kGap},
          std::pair{"1,1\x1e.\x1f{}", &close_reason::kFalseAcknowledgement}})
        EXPECT_EQ(receiver.begin(frame), reason) << frame;
    EXPECT_EQ(receiver.pending(), 0u);
}

TEST_F(FrameReceiverTest, nothingIsHandledAfterTheSessionsEnd) {
    ASSERT_EQ(receiver.begin("1,0\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}\x1e.\x1ftoo late"),
              nullptr);
    EXPECT_EQ(receiver.handle(2), nullptr);
    bus->deliver();
    EXPECT_THAT(programHeard, ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
}

}  // namespace
}  // namespace DOVA::gateway
