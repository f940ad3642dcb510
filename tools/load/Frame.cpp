#include "Frame.h"

#include <charconv>

namespace DOVA::load {

namespace {

constexpr char s_record = '\x1e';
constexpr char s_field = '\x1f';

/// Takes a number without leading zeros off the front.
bool takeNumber(std::string_view& text, std::uint64_t& number) {
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(stop - text.data());
    const bool isWell = error == std::errc() && length <= 15 && (length == 1 || text[0] != '0');
    text.remove_prefix(isWell ? length : 0);
    return isWell;
}

/// Takes the first record, without its separator, off the front.
std::string_view takeRecord(std::string_view& records) {
    const std::string_view record = records.substr(1, records.find(s_record, 1) - 1);
    records.remove_prefix(record.size() + 1);
    return record;
}

bool isRecord(std::string_view record) {
    const std::size_t field = record.find(s_field);
    return field != 0 && field != std::string_view::npos &&
           record.find(s_field, field + 1) == std::string_view::npos;
}

}  // namespace

std::optional<Frame> Frame::parse(std::string_view text) {
    Frame frame;
    if (!takeNumber(text, frame.sequence) || frame.sequence == 0 || text.substr(0, 1) != ",") {
        return {};
    }
    text.remove_prefix(1);
    if (!takeNumber(text, frame.acknowledged) || (!text.empty() && text[0] != s_record)) {
        return {};
    }
    frame.records = text;
    for (; !text.empty(); ++frame.count) {
        if (!isRecord(takeRecord(text))) {
            return {};
        }
    }
    return frame;
}

void Frame::each(std::uint64_t skipped,
                 const std::function<void(std::string_view, std::string_view)>& call) const {
    for (std::string_view rest = records; !rest.empty();) {
        const std::string_view record = takeRecord(rest);
        const std::size_t field = record.find(s_field);
        if (skipped > 0) {
            --skipped;
        } else {
            call(record.substr(0, field), record.substr(field + 1));
        }
    }
}

std::string Frame::record(std::string_view channel, std::string_view text) {
    std::string record;
    record.reserve(channel.size() + text.size() + 2);
    record += s_record;
    record += channel;
    record += s_field;
    return record += text;
}

}  // namespace DOVA::load
