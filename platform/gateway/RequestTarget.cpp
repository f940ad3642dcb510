#include "RequestTarget.h"

#include <algorithm>
#include <boost/beast/core/string.hpp>
#include <charconv>
#include <utility>

namespace DOVA::gateway {

namespace {

constexpr std::string_view s_scheme = "http://";

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            result.push_back(text[at]);
            continue;
        }
        const std::string_view digits = text.substr(at + 1, 2);
        unsigned code = 0;
        const char* const end = digits.data() + digits.size();
        if (digits.size() < 2 || std::from_chars(digits.data(), end, code, 16).ptr != end) {
            return {};
        }
        result.push_back(static_cast<char>(code));
        at += 2;
    }
    return result;
}

bool isPlainPath(std::string_view path) {
    return !path.empty() && path.front() == '/' &&
           std::none_of(path.begin(), path.end(), [](unsigned char character) {
               return character < 0x20 || character == 0x7f || character == '\\';
           });
}

bool readQuery(std::string_view query, RequestTarget& target) {
    while (!query.empty()) {
        const std::string_view pair = query.substr(0, query.find('&'));
        query.remove_prefix(std::min(pair.size() + 1, query.size()));
        const std::string_view name = pair.substr(0, pair.find('='));
        auto value = percentDecoded(pair.substr(std::min(name.size() + 1, pair.size())));
        if (!value || !target.query.emplace(name, std::move(*value)).second) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<RequestTarget> RequestTarget::parse(std::string_view text) {
    RequestTarget target;
    if (boost::beast::iequals({text.data(), std::min(text.size(), s_scheme.size())},
                              {s_scheme.data(), s_scheme.size()})) {
        text.remove_prefix(s_scheme.size());
        target.host = text.substr(0, text.find_first_of("/?"));
        text.remove_prefix(target.host.size());
        if (target.host.empty()) {
            return {};
        }
    }
    const std::string_view path = text.substr(0, text.find('?'));
    auto decoded = percentDecoded(path.empty() && !target.host.empty() ? "/" : path);
    if (!decoded || !isPlainPath(*decoded)) {
        return {};
    }
    target.path = std::move(*decoded);
    if (!readQuery(text.substr(std::min(path.size() + 1, text.size())), target)) {
        return {};
    }
    return target;
}

std::string_view RequestTarget::value(std::string_view name) const {
    const auto found = query.find(name);
    return found == query.end() ? std::string_view() : std::string_view(found->second);
}

}  // namespace DOVA::gateway
