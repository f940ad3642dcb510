#include "FrameCodec.h"

#include <algorithm>
#include <boost/locale/utf.hpp>
#include <charconv>
#include <cstring>

namespace DOVA::session {

namespace {

constexpr std::uint64_t s_everyByte = 0x0101010101010101;
constexpr std::uint64_t s_highBits = 0x80 * s_everyByte;

/// Whether the next eight bytes are ASCII and no separators. The separators differ in the lowest
/// bit only, so that one search for a zero byte finds both.
bool areEightPlain(const char* bytes) {
    static_assert((FrameCodec::s_recordSeparator | 1) == FrameCodec::s_textSeparator);
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    const std::uint64_t separators =
        (word | s_everyByte) ^ (s_everyByte * std::uint64_t{FrameCodec::s_textSeparator});
    return (((separators - s_everyByte) | word) & s_highBits) == 0;
}

}  // namespace

std::optional<Frame> FrameCodec::parse(std::string_view frame) {
    Frame result;
    if (!readNumber(frame, result.sequence) || result.sequence == 0) {
        return {};
    }
    if (frame.empty() || frame.front() != ',') {
        return {};
    }
    frame.remove_prefix(1);
    if (!readNumber(frame, result.acknowledged)) {
        return {};
    }
    result.records = frame;
    if (!readRecords(result)) {
        return {};
    }
    return result;
}

bool FrameCodec::readNumber(std::string_view& text, std::uint64_t& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number > s_maxNumber) {
        return false;
    }
    const auto length = static_cast<std::size_t>(stop - text.data());
    if (text.front() == '0' && length > 1) {
        return false;
    }
    text.remove_prefix(length);
    return true;
}

bool FrameCodec::readRecords(Frame& frame) {
    std::string_view rest = frame.records;
    for (; !rest.empty(); ++frame.count) {
        if (rest.front() != s_recordSeparator) {
            return false;
        }
        rest.remove_prefix(1);
        const std::string_view record = rest.substr(0, rest.find(s_recordSeparator));
        const std::size_t channelEnd = record.find(s_textSeparator);
        if (channelEnd == std::string_view::npos || channelEnd == 0 ||
            channelEnd > s_maxChannelBytes ||
            record.find(s_textSeparator, channelEnd + 1) != std::string_view::npos) {
            return false;
        }
        rest.remove_prefix(record.size());
    }
    return true;
}

Record FrameCodec::takeRecord(std::string_view& records) {
    const std::string_view record =
        records.substr(1, records.find(s_recordSeparator, 1) - 1);  // npos - 1 is as far as any end
    const std::size_t channelEnd = record.find(s_textSeparator);
    records.remove_prefix(record.size() + 1);
    return {record.substr(0, channelEnd), record.substr(channelEnd + 1)};
}

std::string_view FrameCodec::skipRecords(std::string_view records, std::uint64_t count) {
    for (; count > 0; --count) {
        takeRecord(records);
    }
    return records;
}

std::size_t FrameCodec::weight(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    const bool isArray = start != std::string_view::npos && text[start] == '[';
    const auto objects =
        isArray ? static_cast<std::size_t>(std::count(text.begin(), text.end(), '{')) : 0;
    return std::max<std::size_t>(objects, 1) + text.size() / s_eventBytes;
}

void FrameCodec::writeHeader(std::string& into, std::uint64_t sequence,
                             std::uint64_t acknowledged) {
    char digits[48];
    char* end = std::to_chars(digits, digits + 20, sequence).ptr;
    *end++ = ',';
    end = std::to_chars(end, end + 20, acknowledged).ptr;
    into.assign(digits, end);
}

void FrameCodec::appendRecord(std::string& into, std::string_view channel, std::string_view text) {
    into.push_back(s_recordSeparator);
    into.append(channel);
    into.push_back(s_textSeparator);
    into.append(text);
}

bool FrameCodec::isCarriable(std::string_view text) {
    namespace utf = boost::locale::utf;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        if (end - at >= 8 && areEightPlain(at)) {
            at += 8;
            continue;
        }
        const utf::code_point point = utf::utf_traits<char>::decode(at, end);
        if (point == utf::illegal || point == utf::incomplete ||
            (point | 1) == static_cast<utf::code_point>(s_textSeparator)) {
            return false;
        }
    }
    return true;
}

}  // namespace DOVA::session
