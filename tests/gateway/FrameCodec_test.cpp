#include "FrameCodec.h"

#include <gtest/gtest.h>

#include <string>

namespace DOVA::gateway {
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

TEST(FrameCodecTest, whatATextMayHoldIsToldWhereverItStands) {
    struct {
        const char* text;
        bool carriable;
    } const rows[] = {
        // The neighbours of the separators, code points that end like them, and each length.
        {"{\"id\":\"12\"}", true},
        {"\x1d \x20\x7f", true},
        {"\xc4\x9e\xc4\x9f", true},
        {"\xe2\x82\xac", true},
        {"\xf0\x9f\x98\x80", true},
        {"\xf4\x8f\xbf\xbf", true},
        // The separators, then what is no UTF-8: lone, overlong, a surrogate, too large, cut.
        {"\x1e", false},
        {"\x1f", false},
        {"\x80", false},
        {"\xc0\x9e", false},
        {"\xe0\x80\xaf", false},
        {"\xed\xa0\x80", false},
        {"\xf4\x90\x80\x80", false},
        {"\xe2\x82", false}};
    for (const auto& row : rows)
        for (std::size_t before = 0; before < 17; ++before)  // eight bytes are looked at in one go
            for (const std::size_t after : {0u, 1u, 8u, 17u})
                EXPECT_EQ(FrameCodec::isCarriable(std::string(before, 'x') + row.text +
                                                  std::string(after, '~')),
                          row.carriable)
                    << row.text << ", " << before << " before, " << after << " after";
}

}  // namespace
}  // namespace DOVA::gateway
