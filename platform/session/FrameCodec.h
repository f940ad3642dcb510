#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace DOVA::session {

/// One text and where it belongs; views into the frame it was read from.
struct Record {
    std::string_view channel;
    std::string_view text;
};

/// A data frame that was found well-formed; a view into its text.
struct Frame {
    /// Number of the first record, or of the next one when the frame has none.
    std::uint64_t sequence = 0;
    /// Number of the last record that came in order from the other side.
    std::uint64_t acknowledged = 0;
    std::string_view records;
    std::size_t count = 0;
};

/// Reads and writes data frames: "SEQ,ACK", then for each record U+001E, the channel, U+001F and
/// the text as it stands. Pure text work without state.
class FrameCodec {
public:
    static constexpr char s_recordSeparator = '\x1e';
    static constexpr char s_textSeparator = '\x1f';
    /// Largest number a page can count to exactly.
    static constexpr std::uint64_t s_maxNumber = (std::uint64_t{1} << 53) - 1;
    static constexpr std::size_t s_maxChannelBytes = 256;

    /// Nothing when any part of the frame is malformed.
    static std::optional<Frame> parse(std::string_view frame);

    /// Takes the first record off `Frame::records`, which must not be empty.
    static Record takeRecord(std::string_view& records);

    /// Drops the first `count` records; there must be as many.
    static std::string_view skipRecords(std::string_view records, std::uint64_t count);

    /// What a text costs whoever handles it, in events: an array has as many as it has objects, any
    /// other text is one, and so are `s_eventBytes` of either.
    static std::size_t weight(std::string_view text);
    static constexpr std::size_t s_eventBytes = 1024;

    static void writeHeader(std::string& into, std::uint64_t sequence, std::uint64_t acknowledged);
    static void appendRecord(std::string& into, std::string_view channel, std::string_view text);

    /// Whether a text can travel in a frame: valid UTF-8 without the two separators.
    static bool isCarriable(std::string_view text);

private:
    static bool readNumber(std::string_view& text, std::uint64_t& number);
    static bool readRecords(Frame& frame);
};

}  // namespace DOVA::session
