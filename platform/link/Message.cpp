#include "Message.h"

#include <charconv>
#include <vector>

namespace DOVA::link::message {

namespace {

constexpr char s_separator = '\x1f';
constexpr std::string_view s_none = "-";

template <typename Number>
bool readNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end;
}

std::vector<std::string_view> fields(std::string_view text) {
    std::vector<std::string_view> result;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = text.find(s_separator);
        result.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return result;
}

std::string joined(const std::vector<std::string>& fields) {
    std::string result;
    for (const std::string& field : fields) {
        result += field;
        result += s_separator;
    }
    result.pop_back();
    return result;
}

}  // namespace

std::string head(Message::Kind kind, std::string_view link, std::size_t restBytes) {
    const std::size_t length = 2 + link.size() + restBytes;
    std::string result;
    result.reserve(s_lengthBytes + 2 + link.size() + restBytes);
    for (int shift = 24; shift >= 0; shift -= 8) {
        result.push_back(static_cast<char>(length >> shift & 0xff));
    }
    result.push_back(static_cast<char>(kind));
    result.push_back(static_cast<char>(link.size()));
    return result.append(link);
}

std::size_t lengthAt(const char* bytes) {
    std::size_t length = 0;
    for (std::size_t index = 0; index < s_lengthBytes; ++index) {
        length = length << 8 | static_cast<unsigned char>(bytes[index]);
    }
    return length;
}

std::optional<Message> parse(std::string_view text) {
    if (text.size() < 2) {
        return std::nullopt;
    }
    const std::size_t linkBytes = static_cast<unsigned char>(text[1]);
    if (text.size() < 2 + linkBytes) {
        return std::nullopt;
    }
    return Message{static_cast<Message::Kind>(text[0]), text.substr(2, linkBytes),
                   text.substr(2 + linkBytes)};
}

std::string opening(const Opening& opening) {
    return joined({opening.page, std::to_string(opening.attempt),
                   opening.received ? std::to_string(*opening.received) : std::string(s_none),
                   opening.isReady ? "1" : "0"});
}

std::optional<Opening> readOpening(std::string_view rest) {
    const auto parts = fields(rest);
    Opening opening;
    if (parts.size() != 4 || !readNumber(parts[1], opening.attempt)) {
        return std::nullopt;
    }
    if (parts[2] != s_none && !readNumber(parts[2], opening.received.emplace())) {
        return std::nullopt;
    }
    opening.page = parts[0];
    opening.isReady = parts[3] == "1";
    return opening;
}

std::string count(std::size_t bytes) {
    return std::to_string(bytes);
}

std::optional<std::size_t> readCount(std::string_view rest) {
    std::size_t bytes = 0;
    return readNumber(rest, bytes) ? std::optional(bytes) : std::nullopt;
}

std::string reason(const session::CloseReason& reason) {
    return joined({std::to_string(reason.code), reason.text});
}

std::optional<Reason> readReason(std::string_view rest) {
    const auto parts = fields(rest);
    Reason reason{};
    if (parts.size() != 2 || !readNumber(parts[0], reason.code)) {
        return std::nullopt;
    }
    reason.text = parts[1];
    return reason;
}

std::string hello(const Properties& properties) {
    std::vector<std::string> parts;
    for (const auto& [name, value] : properties) {
        parts.push_back(name);
        parts.push_back(value);
    }
    return joined(parts);
}

std::optional<Properties> readHello(std::string_view rest) {
    const auto parts = fields(rest);
    if (parts.size() % 2 != 0) {
        return std::nullopt;
    }
    Properties properties;
    for (std::size_t index = 0; index < parts.size(); index += 2) {
        properties.emplace(parts[index], parts[index + 1]);
    }
    return properties;
}

}  // namespace DOVA::link::message
