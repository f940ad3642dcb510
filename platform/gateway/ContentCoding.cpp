#include "ContentCoding.h"

#include <algorithm>
#include <boost/beast/http/rfc7230.hpp>
#include <charconv>
#include <utility>

namespace DOVA::gateway {

namespace http = boost::beast::http;

namespace {

/// The one that makes smaller files first.
constexpr ContentCoding s_codings[] = {{"br", ".br"}, {"gzip", ".gz"}};

float readQuality(boost::beast::string_view text) {
    float quality = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, quality);
    return error == std::errc() && stop == end && quality <= 1 ? quality : 0;
}

float qualityOf(const http::ext_list::value_type& coding) {
    for (const auto& [name, value] : coding.second) {
        if (boost::beast::iequals(name, "q")) {
            return readQuality(value);
        }
    }
    return 1;
}

/// "*" stands for all that are not named.
float qualityOf(std::string_view wanted, const http::ext_list& accepted) {
    float others = 0;
    for (const auto& coding : accepted) {
        if (boost::beast::iequals(coding.first, {wanted.data(), wanted.size()})) {
            return qualityOf(coding);
        }
        others = coding.first == "*" ? qualityOf(coding) : others;
    }
    return others;
}

}  // namespace

std::vector<ContentCoding> acceptedCodings(std::string_view acceptEncoding) {
    const http::ext_list accepted({acceptEncoding.data(), acceptEncoding.size()});
    std::vector<std::pair<float, ContentCoding>> rated;
    for (const ContentCoding& coding : s_codings) {
        rated.emplace_back(qualityOf(coding.name, accepted), coding);
    }
    std::stable_sort(rated.begin(), rated.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<ContentCoding> codings;
    for (const auto& [quality, coding] : rated) {
        if (quality > 0) {
            codings.push_back(coding);
        }
    }
    return codings;
}

}  // namespace DOVA::gateway
