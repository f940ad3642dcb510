#include "FrameCodec.h"

#include <gtest/gtest.h>

#include <string>

namespace DOVA::session {
namespace {

// What else is refused, and what is read, stands in the rows that the page replays too.
TEST(FrameCodecTest, numbersAndChannelsHaveTheirGreatestLength) {
    EXPECT_TRUE(FrameCodec::parse("9007199254740991,9007199254740991"));
    EXPECT_FALSE(FrameCodec::parse("9007199254740992,0"));
    EXPECT_FALSE(FrameCodec::parse("1,9007199254740992"));
    EXPECT_TRUE(FrameCodec::parse("1,0\x1e" + std::string(256, 'c') + "\x1f{}"));
}

TEST(FrameCodecTest, everyTruncationIsRefusedOrEndsAtATextsBytes) {
    const std::string whole = "12,34\x1e.\x1f{\"a\":1}\x1e./5\x1f[2]";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const std::size_t lastRecord = cut.rfind('\x1e');
        const bool expected = lastRecord == std::string::npos
                                  ? length >= 4  // "12,3" cannot be told from a shorter number
                                  : cut.find('\x1f', lastRecord) != std::string::npos;
        EXPECT_EQ(FrameCodec::parse(cut).has_value(), expected) << length;
    }
}

/// At every offset, since eight bytes are looked at in one go.
void expectCarriable(bool expected, std::initializer_list<std::string> texts) {
    for (const std::string& text : texts) {
        for (std::size_t before = 0; before < 17; ++before) {
            for (const std::size_t after : {0u, 1u, 8u, 17u}) {
                EXPECT_EQ(FrameCodec::isCarriable(std::string(before, 'x') + text +
                                                  std::string(after, '~')),
                          expected)
                    << text << ", " << before << " before, " << after << " after";
            }
        }
    }
}

TEST(FrameCodecTest, whatATextMayHoldIsToldWhereverItStands) {
    // The neighbours of the separators, code points that end like them, and each length there is.
    expectCarriable(true, {"{\"id\":\"12\"}", "\x1d \x20\x7f", "\xc4\x9e\xc4\x9f", "\xe2\x82\xac",
                           "\xf0\x9f\x98\x80", "\xf4\x8f\xbf\xbf"});
    // The separators, then what is no UTF-8: lone, overlong, a surrogate, too large, cut.
    expectCarriable(false, {"\x1e", "\x1f", "\x80", "\xc0\x9e", "\xe0\x80\xaf", "\xed\xa0\x80",
                            "\xf4\x90\x80\x80", "\xe2\x82"});
}

}  // namespace
}  // namespace DOVA::session
