#include "Message.h"

#include <gtest/gtest.h>

namespace DOVA::link {
namespace {

TEST(MessageTest, isReadAsWritten) {
    const std::string text = message::head(Message::Kind::Frame, "link 7", 3) + "abc";
    EXPECT_EQ(message::lengthAt(text.data()), text.size() - message::s_lengthBytes);
    const auto read = message::parse(std::string_view(text).substr(message::s_lengthBytes));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, Message::Kind::Frame);
    EXPECT_EQ(read->link, "link 7");
    EXPECT_EQ(read->rest, "abc");
    EXPECT_EQ(message::lengthAt("\x01\x02\xf0\xff"), 0x0102f0ffu);
}

TEST(MessageTest, openingsAreReadAsWritten) {
    const Opening rows[] = {{"p", 0, {}, false}, {"page-1", 9007199254740991, 17, true}};
    for (const Opening& row : rows) {
        const auto read = message::readOpening(message::opening(row));
        ASSERT_TRUE(read) << row.page;
        EXPECT_EQ(std::tie(read->page, read->attempt, read->received, read->isReady),
                  std::tie(row.page, row.attempt, row.received, row.isReady));
    }
}

TEST(MessageTest, whatHasAnotherFormIsNone) {
    for (const char* const bad : {"", "f", "f\x02x"}) {
        EXPECT_FALSE(message::parse(bad)) << bad;
    }
    for (const char* const bad : {"",
                                  "p\x1f"
                                  "1\x1f-",
                                  "p\x1f"
                                  "one\x1f-\x1f"
                                  "1",
                                  "p\x1f"
                                  "1\x1f-1\x1f"
                                  "1",
                                  "p\x1f"
                                  "1\x1f-\x1f"
                                  "1\x1f"}) {
        EXPECT_FALSE(message::readOpening(bad)) << bad;
    }
    for (const char* const bad : {"", "-1", "1 ", "99999999999999999999"}) {
        EXPECT_FALSE(message::readCount(bad)) << bad;
    }
    for (const char* const bad : {"", "1001", "70000\x1fx", "x\x1fy"}) {
        EXPECT_FALSE(message::readReason(bad)) << bad;
    }
    EXPECT_FALSE(
        message::readHello("a\x1f"
                           "b\x1f"
                           "c"));
}

}  // namespace
}  // namespace DOVA::link
