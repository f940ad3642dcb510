#include "FrameCodec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace DOVA::gateway {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs recordsOf(const Frame& frame) {
    Pairs pairs;
    std::string_view rest = frame.records;
    while (!rest.empty()) {
        const Record record = FrameCodec::takeRecord(rest);
        pairs.emplace_back(record.channel, record.text);
    }
    return pairs;
}

struct GoodRow {
    const char* name;
    std::string frame;
    std::uint64_t sequence;
    std::uint64_t acknowledged;
    Pairs records;
};

class FrameCodecGoodTest : public testing::TestWithParam<GoodRow> {};

TEST_P(FrameCodecGoodTest, isRead) {
    const GoodRow& row = GetParam();
    const auto frame = FrameCodec::parse(row.frame);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->sequence, row.sequence);
    EXPECT_EQ(frame->acknowledged, row.acknowledged);
    EXPECT_EQ(frame->count, row.records.size());
    EXPECT_EQ(recordsOf(*frame), row.records);
}

/// Writing what was read gives the same bytes: there is one way to write a frame.
TEST_P(FrameCodecGoodTest, isWrittenTheSameWay) {
    const GoodRow& row = GetParam();
    std::string written;
    FrameCodec::writeHeader(written, row.sequence, row.acknowledged);
    for (const auto& [channel, text] : row.records)
        FrameCodec::appendRecord(written, channel, text);
    EXPECT_EQ(written, row.frame);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FrameCodecGoodTest,
    testing::Values(GoodRow{"bare", "1,0", 1, 0, {}},
                    GoodRow{"one", "7,3\x1e./12\x1f{}", 7, 3, {{"./12", "{}"}}},
                    GoodRow{"several",
                            "1,0\x1e.\x1f[1]\x1e./2\x1f\"a,b\"\x1e/dova2/web\x1f{\"ping\":-1}",
                            1,
                            0,
                            {{".", "[1]"}, {"./2", "\"a,b\""}, {"/dova2/web", "{\"ping\":-1}"}}},
                    GoodRow{"emptyTexts", "1,0\x1e.\x1f\x1e.\x1f", 1, 0, {{".", ""}, {".", ""}}},
                    GoodRow{"largestNumbers",
                            "9007199254740991,9007199254740991",
                            9007199254740991,
                            9007199254740991,
                            {}},
                    GoodRow{"lineBreaksAndNul",
                            std::string("1,0\x1e.\x1f\n\0\r", 9),
                            1,
                            0,
                            {{".", std::string("\n\0\r", 3)}}}),
    [](const auto& row) { return row.param.name; });

struct BadRow {
    const char* name;
    std::string frame;
};

class FrameCodecBadTest : public testing::TestWithParam<BadRow> {};

TEST_P(FrameCodecBadTest, isRefused) {
    EXPECT_FALSE(FrameCodec::parse(GetParam().frame));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FrameCodecBadTest,
    testing::Values(BadRow{"empty", ""}, BadRow{"noAcknowledgement", "1"},
                    BadRow{"nothingAfterComma", "1,"}, BadRow{"nothingBeforeComma", ",1"},
                    BadRow{"numberedFromZero", "0,0"}, BadRow{"leadingZero", "01,0"},
                    BadRow{"leadingZeroInAcknowledgement", "1,00"}, BadRow{"negative", "-1,0"},
                    BadRow{"plusSign", "+1,0"}, BadRow{"space", "1, 0"}, BadRow{"hex", "0x1,0"},
                    BadRow{"fraction", "1.0,0"}, BadRow{"beyondExactNumbers", "9007199254740992,0"},
                    BadRow{"beyond64Bits", "99999999999999999999999,0"},
                    BadRow{"textAfterHeader", "1,0x"}, BadRow{"secondComma", "1,0,0"},
                    BadRow{"recordWithoutText", "1,0\x1e."},
                    BadRow{"recordWithoutAnything", "1,0\x1e"},
                    BadRow{"recordWithoutChannel", "1,0\x1e\x1ftext"},
                    BadRow{"secondTextSeparator",
                           "1,0\x1e.\x1f"
                           "a\x1f"
                           "b"},
                    BadRow{"laterRecordIsBad", "1,0\x1e.\x1f{}\x1e./1"},
                    BadRow{"textSeparatorFirst", "1,0\x1f.\x1e{}"},
                    BadRow{"json", "{\"clientReady\":\"a\"}"},
                    BadRow{"channelTooLong", "1,0\x1e" + std::string(257, 'c') + "\x1f{}"}),
    [](const auto& row) { return row.param.name; });

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

struct CarriableRow {
    const char* name;
    std::string text;
    bool carriable;
};

class FrameCodecCarriableTest : public testing::TestWithParam<CarriableRow> {};

/// At every offset, since eight bytes are looked at in one go.
TEST_P(FrameCodecCarriableTest, isToldWhereverItStands) {
    for (std::size_t before = 0; before < 17; ++before)
        for (const std::size_t after : {0u, 1u, 8u, 17u})
            EXPECT_EQ(FrameCodec::isCarriable(std::string(before, 'x') + GetParam().text +
                                              std::string(after, '~')),
                      GetParam().carriable)
                << before << " before, " << after << " after";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FrameCodecCarriableTest,
    testing::Values(
        CarriableRow{"nothing", "", true}, CarriableRow{"ascii", "{\"id\":\"12\"}", true},
        CarriableRow{"nul", std::string(1, '\0'), true}, CarriableRow{"delete", "\x7f", true},
        CarriableRow{"neighboursOfTheSeparators", "\x1d \x20", true},
        CarriableRow{"umlaut", "\xc3\xa4", true}, CarriableRow{"euro", "\xe2\x82\xac", true},
        CarriableRow{"emoji", "\xf0\x9f\x98\x80", true},
        CarriableRow{"highestCodePoint", "\xf4\x8f\xbf\xbf", true},
        CarriableRow{"codePointsThatEndLikeSeparators", "\xc4\x9e\xc4\x9f", true},
        CarriableRow{"recordSeparator", "\x1e", false},
        CarriableRow{"textSeparator", "\x1f", false},
        CarriableRow{"loneContinuation", "\x80", false}, CarriableRow{"latin1", "\xe4", false},
        CarriableRow{"overlongSlash", "\xc0\xaf", false},
        CarriableRow{"overlongSeparator", "\xc0\x9e", false},
        CarriableRow{"overlongOfThree", "\xe0\x80\xaf", false},
        CarriableRow{"surrogate", "\xed\xa0\x80", false},
        CarriableRow{"beyondUnicode", "\xf4\x90\x80\x80", false},
        CarriableRow{"cutEuro", "\xe2\x82", false}, CarriableRow{"byteFE", "\xfe", false}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace DOVA::gateway
