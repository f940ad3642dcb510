#include "RefusalLog.h"

#include <algorithm>
#include <string_view>

#include "log/Log.h"

namespace DOVA::gateway {

namespace {

namespace http = boost::beast::http;

constexpr std::chrono::minutes s_pause{1};
constexpr std::size_t s_maxShown = 100;

bool keepsAPageOut(http::status status) {
    return status == http::status::bad_request || status == http::status::unauthorized ||
           status == http::status::forbidden || status == http::status::service_unavailable;
}

/// A header as it can stand in a log: whoever sent it must not be able to forge a line.
std::string shown(const RequestRouter::Request& request, http::field name) {
    const auto value = request[name];
    std::string text(value.substr(0, s_maxShown));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return text.empty() ? "none" : text;
}

}  // namespace

/// The request's target is left out: it may hold the token.
void RefusalLog::note(const RequestRouter::Response& response,
                      const RequestRouter::Request& request, Clock::time_point now) {
    if (!keepsAPageOut(response.result())) {
        return;
    }
    std::string reason = response.body().substr(0, response.body().find('\n'));
    if (reason.empty()) {
        reason = std::string(response.reason());
    }
    ++m_counts[reason];
    const auto [told, isNew] = m_toldAt.try_emplace(reason, now);
    const bool isRepeated = !isNew && now - told->second < s_pause;
    told->second = isRepeated ? told->second : now;
    log::write(isRepeated ? log::Level::Debug : log::Level::Warning, "gateway",
               "refused a page with " + std::to_string(response.result_int()) + ": " + reason +
                   " (Host " + shown(request, http::field::host) + ", Origin " +
                   shown(request, http::field::origin) + ")");
}

}  // namespace DOVA::gateway
