#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace DOVA::load {

/// A frame of the socket: "SEQ,ACK", then for each record U+001E, its channel, U+001F, its text.
/// Written apart from the server's reader, which is what it is to check.
struct Frame {
    std::uint64_t sequence = 0;
    std::uint64_t acknowledged = 0;
    /// All records as they stand.
    std::string_view records;
    std::uint64_t count = 0;

    /// Nothing for a malformed one.
    static std::optional<Frame> parse(std::string_view text);
    /// Calls with channel and text of each record but the first `skipped`.
    void each(std::uint64_t skipped,
              const std::function<void(std::string_view, std::string_view)>& call) const;

    static std::string record(std::string_view channel, std::string_view text);
};

}  // namespace DOVA::load
